#include "platform/help/HelpWindow.h"

#include "platform/help/HelpBook.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyle>
#include <QTextBrowser>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace help {
namespace {

constexpr int indexRole = Qt::UserRole;
constexpr QSize preferredSize(900, 620);
constexpr QSize frameRoom(20, 50);
constexpr int readingPoints = 10;
const QColor hitColour(255, 235, 150);

} // namespace

HelpWindow::HelpWindow(const HelpBook &book, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_book(book)
{
    setObjectName(u"frmHelp"_s);
    setWindowTitle(tr("Quorvantis Help"));
    setAttribute(Qt::WA_DeleteOnClose);

    auto *halves = new QSplitter(this);
    halves->addWidget(makeNavigator());
    halves->addWidget(makePagePane());
    halves->setStretchFactor(0, 0);
    halves->setStretchFactor(1, 1);
    halves->setSizes({preferredSize.width() * 3 / 10, preferredSize.width() * 7 / 10});
    halves->setChildrenCollapsible(false);
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(halves);
    place();

    fillContents();
    setTabOrder(txtSearch, m_contents);
    setTabOrder(m_contents, m_found);
    setTabOrder(m_found, m_page);
}

void HelpWindow::place()
{
    // On the screen on which the user works.
    const QWidget *beside = QApplication::activeWindow();
    const QRect area = (beside != nullptr ? beside : this)->screen()->availableGeometry();
    // Room for the window's frame, which the system adds.
    const QSize size = preferredSize.boundedTo(area.size() - frameRoom);
    QRect rectangle(QPoint(), size);
    rectangle.moveCenter(area.center());
    setGeometry(rectangle);
}

QWidget *HelpWindow::makeNavigator()
{
    auto *pane = new QWidget(this);
    auto *column = new QVBoxLayout(pane);

    txtSearch = new QLineEdit(pane);
    txtSearch->setObjectName(u"txtSearch"_s);
    txtSearch->setPlaceholderText(tr("Words to look for"));
    txtSearch->setClearButtonEnabled(true);
    auto *caption = new QLabel(tr("&Search:"), pane);
    caption->setBuddy(txtSearch);
    connect(txtSearch, &QLineEdit::textChanged, this, &HelpWindow::search);
    connect(txtSearch, &QLineEdit::returnPressed, this, [this] {
        if (m_navigator->currentWidget() == m_found && m_found->count() > 0)
            m_found->setCurrentRow(0);
    });

    m_contents = new QTreeWidget(pane);
    m_contents->setObjectName(u"treContents"_s);
    m_contents->setAccessibleName(tr("Contents"));
    m_contents->setHeaderHidden(true);
    m_contents->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(m_contents, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *item) {
        if (item != nullptr)
            m_page->setSource(m_book.url(item->data(0, indexRole).toString()));
    });

    m_found = new QListWidget(pane);
    m_found->setObjectName(u"lstFound"_s);
    m_found->setAccessibleName(tr("Pages found"));
    m_found->setWordWrap(true);
    connect(m_found, &QListWidget::currentItemChanged, this, [this](QListWidgetItem *item) {
        if (item != nullptr && item->flags().testFlag(Qt::ItemIsSelectable))
            m_page->setSource(m_book.url(item->data(indexRole).toString()));
    });

    m_navigator = new QStackedWidget(pane);
    m_navigator->addWidget(m_contents);
    m_navigator->addWidget(m_found);

    column->addWidget(caption);
    column->addWidget(txtSearch);
    column->addWidget(m_navigator, 1);
    return pane;
}

QWidget *HelpWindow::makePagePane()
{
    auto *pane = new QWidget(this);
    auto *column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);

    m_page = new QTextBrowser(pane);
    m_page->setObjectName(u"txtPage"_s);
    m_page->setAccessibleName(tr("Page"));
    m_page->setOpenExternalLinks(true);
    m_page->setFrameShape(QFrame::NoFrame);
    m_page->document()->setDocumentMargin(18);
    // A page is read, not glanced at.
    QFont reading = m_page->font();
    reading.setPointSize(readingPoints);
    m_page->document()->setDefaultFont(reading);
    connect(m_page, &QTextBrowser::sourceChanged, this, &HelpWindow::pageShown);

    auto *bar = new QToolBar(pane);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [&](QStyle::StandardPixmap icon, const QString &text, QKeySequence key) {
        QAction *action = bar->addAction(style()->standardIcon(icon), text);
        action->setShortcut(key);
        action->setToolTip(u"%1 (%2)"_s.arg(text, key.toString(QKeySequence::NativeText)));
        return action;
    };
    QAction *back = add(QStyle::SP_ArrowBack, tr("Back"), QKeySequence(Qt::ALT | Qt::Key_Left));
    QAction *forward =
        add(QStyle::SP_ArrowForward, tr("Forward"), QKeySequence(Qt::ALT | Qt::Key_Right));
    QAction *home = add(QStyle::SP_ArrowUp, tr("Start"), QKeySequence(Qt::ALT | Qt::Key_Home));
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QAction::triggered, m_page, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, m_page, &QTextBrowser::forward);
    connect(home, &QAction::triggered, this, [this] { openTopic({}); });
    connect(m_page, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_page, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    column->addWidget(bar);
    column->addWidget(m_page, 1);
    return pane;
}

void HelpWindow::fillContents()
{
    std::vector<QTreeWidgetItem *> path;
    for (const Page &page : m_book.pages()) {
        // The pages come in the order of the tree: cut to its depth, the path ends at the page
        // above.
        path.resize(static_cast<size_t>(page.depth));
        auto *item =
            path.empty() ? new QTreeWidgetItem(m_contents) : new QTreeWidgetItem(path.back());
        item->setText(0, page.title);
        item->setData(0, indexRole, page.topic);
        path.push_back(item);
    }
    m_contents->expandAll();
}

void HelpWindow::openTopic(const QString &topic)
{
    // Or the list of what was found before would hide where the page stands.
    txtSearch->clear();
    m_page->setSource(m_book.url(topic));
}

void HelpWindow::search(const QString &query)
{
    m_found->clear();
    const bool searching = !searchWords(query).isEmpty();
    m_navigator->setCurrentWidget(searching ? static_cast<QWidget *>(m_found) : m_contents);
    for (const int index : m_book.search(query)) {
        const Page &page = m_book.pages()[static_cast<size_t>(index)];
        auto *item = new QListWidgetItem(page.title, m_found);
        item->setData(indexRole, page.topic);
    }
    if (searching && m_found->count() == 0) {
        auto *none = new QListWidgetItem(tr("No page holds all of these words."), m_found);
        none->setFlags(Qt::ItemIsEnabled);
    }
    markWords();
}

void HelpWindow::pageShown(const QUrl &url)
{
    const int index = m_book.indexOf(url.fileName().section(u'.', 0, 0));
    if (index >= 0) {
        // Following a link moves the contents along, without coming back here.
        const QSignalBlocker quiet(m_contents);
        const QString &topic = m_book.pages()[static_cast<size_t>(index)].topic;
        for (QTreeWidgetItemIterator item(m_contents); *item != nullptr; ++item) {
            if ((*item)->data(0, indexRole).toString() == topic)
                m_contents->setCurrentItem(*item);
        }
    }
    markWords();
}

void HelpWindow::markWords()
{
    QList<QTextEdit::ExtraSelection> hits;
    for (const QString &word : searchWords(txtSearch->text())) {
        QTextCursor hit(m_page->document());
        while (!(hit = m_page->document()->find(word, hit)).isNull()) {
            QTextEdit::ExtraSelection selection;
            selection.cursor = hit;
            selection.format.setBackground(hitColour);
            hits.append(selection);
        }
    }
    m_page->setExtraSelections(hits);
}

void HelpWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace help
