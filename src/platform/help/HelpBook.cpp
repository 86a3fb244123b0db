#include "platform/help/HelpBook.h"

#include "platform/base/Error.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextDocument>
#include <QXmlStreamReader>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace help {
namespace {

QString contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw base::Error(base::ErrorNumber::FileNotFound, u"The help lacks the file "_s + path);
    return QString::fromUtf8(file.readAll());
}

QString plainText(const QString &html)
{
    QTextDocument document;
    document.setHtml(html);
    return document.toPlainText();
}

QString fileOf(const QString &folder, const QString &topic)
{
    return folder + u'/' + topic + u".html"_s;
}

} // namespace

HelpBook::HelpBook(const QString &folder)
    : m_folder(folder)
{
    const QString path = folder + u"/contents.xml"_s;
    QXmlStreamReader contents(contentOf(path));
    int depth = -1;
    while (!contents.atEnd()) {
        const auto token = contents.readNext();
        if (contents.name() != u"page")
            continue;
        if (token == QXmlStreamReader::StartElement) {
            const QXmlStreamAttributes attributes = contents.attributes();
            const QString topic = attributes.value(u"topic"_s).toString();
            m_pages.push_back(
                {topic, attributes.value(u"title"_s).toString(),
                 attributes.value(u"forms"_s).toString().split(u' ', Qt::SkipEmptyParts),
                 plainText(contentOf(fileOf(folder, topic))), ++depth});
        } else if (token == QXmlStreamReader::EndElement) {
            --depth;
        }
    }
    if (contents.hasError() || m_pages.empty())
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"The help's contents can't be read: "_s + path);
}

int HelpBook::indexOf(const QString &topic) const
{
    const QString page = topic.section(u'#', 0, 0);
    const auto found = std::ranges::find(m_pages, page, &Page::topic);
    return found == m_pages.end() ? -1 : static_cast<int>(found - m_pages.begin());
}

QString HelpBook::topicOfForm(const QString &form) const
{
    const auto found = std::ranges::find_if(
        m_pages, [&form](const Page &page) { return page.forms.contains(form); });
    return found == m_pages.end() ? QString() : found->topic;
}

QUrl HelpBook::url(const QString &topic) const
{
    const int index = indexOf(topic);
    // A topic that there is none of opens the first page, which says what the help holds.
    const QString file = fileOf(m_folder, m_pages[static_cast<size_t>(std::max(index, 0))].topic);
    QUrl url = file.startsWith(u':') ? QUrl(u"qrc"_s + file) : QUrl::fromLocalFile(file);
    if (index >= 0 && topic.contains(u'#'))
        url.setFragment(topic.section(u'#', 1));
    return url;
}

std::vector<int> HelpBook::search(const QString &query) const
{
    const QStringList words = searchWords(query);
    std::vector<int> inTitle;
    std::vector<int> inText;
    for (int i = 0; !words.isEmpty() && i < static_cast<int>(m_pages.size()); ++i) {
        const Page &page = m_pages[static_cast<size_t>(i)];
        const auto inThe = [](const QString &text) {
            return
                [&text](const QString &word) { return text.contains(word, Qt::CaseInsensitive); };
        };
        // All words, but some in the title and some in the text will do.
        const QString all = page.title + u'\n' + page.text;
        if (std::ranges::all_of(words, inThe(all)))
            (std::ranges::any_of(words, inThe(page.title)) ? inTitle : inText).push_back(i);
    }
    // Pages that have it in their title are about it.
    inTitle.insert(inTitle.end(), inText.begin(), inText.end());
    return inTitle;
}

QStringList searchWords(const QString &query)
{
    static const QRegularExpression between(u"[^\\w$/&'-]+"_s,
                                            QRegularExpression::UseUnicodePropertiesOption);
    return query.split(between, Qt::SkipEmptyParts);
}

} // namespace help
