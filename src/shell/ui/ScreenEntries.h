#pragma once

#include <QHash>
#include <QString>
#include <functional>

class QWidget;

namespace shell {

/// What the main window can open. The application fills it at start, one line for each screen; the
/// main window knows no screen of another folder. An entry that nobody has joined is disabled.
///
///     screenEntries().add(u"mnuViewPart"_s, [] { showPartDetail(Mode::Browse, u"0"_s); });
class ScreenEntries
{
public:
    using Open = std::function<void()>;
    /// Opens a record by the key that the find returned; comes back when its form is closed.
    using OpenRecord = std::function<void(const QString &key)>;

    /// The standing content of the main window.
    struct Board
    {
        std::function<QWidget *(QWidget *parent)> make;
        /// Reads the board's rows anew.
        std::function<void()> LoadData;
        [[nodiscard]] bool isEmpty() const { return !make; }
        std::function<bool()> reportsVisible;
        std::function<void(bool show)> LoadUnloadReportsNavigator;
    };

    /// Joins a function to a menu object; raises base::Error NoSuchItem when there is no such
    /// object, so that a wrong name shows at the first start.
    void add(const QString &menuObject, Open open);
    [[nodiscard]] bool contains(QStringView menuObject) const;
    /// Runs the function of a menu object; nothing when none has joined.
    void open(QStringView menuObject) const;

    /// Joins the screen that opens a found record, under the form's name.
    void addRecordScreen(const QString &form, OpenRecord open);
    /// The function of a form, empty when none has joined.
    [[nodiscard]] OpenRecord recordScreen(const QString &form) const;

    /// Shows frmPartQuickFind; returns the part's key, blank when cancelled.
    std::function<QString()> ShowPartQuickFind;
    Board board;

private:
    QHash<QString, Open> m_entries;
    QHash<QString, OpenRecord> m_recordScreens;
};

/// The entries of this process.
ScreenEntries &screenEntries();

/// True when everything that a quick link needs has joined, here and in screenCalls().
[[nodiscard]] bool isQuickLinkJoined(int index);
/// Finds a record, opens it, and begins again when it is closed, until the find comes back blank.
void findAndOpen(const std::function<QString()> &find, const ScreenEntries::OpenRecord &open);
/// Runs the find-and-open loop of a quick link that has one.
void runQuickFindLoop(int index);

} // namespace shell
