#pragma once

#include <QWidget>

class QLineEdit;
class QListWidget;
class QStackedWidget;
class QTextBrowser;
class QTreeWidget;
class QTreeWidgetItem;

namespace help {

class HelpBook;

/// One window on a book. Deletes itself when it is closed.
class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    HelpWindow(const HelpBook &book, QWidget *parent);
    /// Shows a page, or its paragraph behind a "#"; the first page for a topic that there is none
    /// of.
    void openTopic(const QString &topic);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    /// In the middle of the screen on which the user works, and within it.
    void place();
    QWidget *makeNavigator();
    QWidget *makePagePane();
    void fillContents();
    void search(const QString &query);
    void pageShown(const QUrl &url);
    void markWords();

    const HelpBook &m_book;
    QLineEdit *txtSearch = nullptr;
    QStackedWidget *m_navigator = nullptr;
    QTreeWidget *m_contents = nullptr;
    QListWidget *m_found = nullptr;
    QTextBrowser *m_page = nullptr;
};

} // namespace help
