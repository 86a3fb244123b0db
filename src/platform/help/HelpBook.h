#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>
#include <vector>

namespace help {

/// One page of the help.
struct Page
{
    QString topic; ///< the file's name without its ending
    QString title;
    QStringList forms; ///< the screens that this page is about
    QString text;      ///< the page without its markup, for the search
    int depth = 0;     ///< 0 at the top of the contents
};

/// The pages of the help, in the order of the contents. A book is a folder with one HTML file for
/// each page and the file contents.xml, whose page elements carry topic, title and forms, and may
/// hold further ones. The first page is the default page.
class HelpBook
{
public:
    /// Reads a book. Raises base::Error when the contents can't be read or name a missing page.
    explicit HelpBook(const QString &folder);

    [[nodiscard]] const std::vector<Page> &pages() const { return m_pages; }
    /// Index of a topic ("users", or "users#rights" for a place within it), -1 when there is none.
    [[nodiscard]] int indexOf(const QString &topic) const;
    /// The topic about a screen, empty when there is none.
    [[nodiscard]] QString topicOfForm(const QString &form) const;
    /// Where a topic stands; the default page for an unknown or empty one.
    [[nodiscard]] QUrl url(const QString &topic) const;
    /// Pages that hold all words of the query, in any case, as indexes; those with a word in the
    /// title come first.
    [[nodiscard]] std::vector<int> search(const QString &query) const;

private:
    QString m_folder;
    std::vector<Page> m_pages;
};

/// The words that a search looks for.
[[nodiscard]] QStringList searchWords(const QString &query);

} // namespace help
