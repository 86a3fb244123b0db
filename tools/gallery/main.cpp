#include "gallery/GalleryWindow.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/input/DateInput.h"
#include "platform/input/DialogPrompts.h"
#include "platform/input/IdCombo.h"
#include "platform/input/Theme.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// Takes pictures of the gallery into a folder.
class Photographer
{
public:
    explicit Photographer(const QString &folder)
        : m_folder(folder)
    {}

    [[nodiscard]] bool takeAll(gallery::GalleryWindow &window)
    {
        if (!m_folder.mkpath(u"."_s))
            return false;
        for (const QString &page : {u"Pictures"_s, u"Grid"_s, u"Messages"_s, u"Inputs"_s}) {
            window.showPage(page);
            QApplication::processEvents();
            take(window, page.toLower());
        }
        takePopups(window);
        window.showPage(u"Messages"_s);
        for (const QString &button : {u"cmdInformation"_s, u"cmdQuestion"_s, u"cmdChanges"_s,
                                      u"cmdWarning"_s, u"cmdCritical"_s, u"cmdInput"_s})
            takeDialog(window.findChild<QAbstractButton *>(button));
        return m_good;
    }

private:
    void take(QWidget &widget, const QString &name)
    {
        m_good = widget.grab().save(m_folder.filePath(name + u".png"_s)) && m_good;
    }

    void takePopups(gallery::GalleryWindow &window)
    {
        auto *date = window.findChild<input::DateInput *>(u"datFrom"_s);
        date->setFocus();
        date->showCalendar();
        QApplication::processEvents();
        if (QWidget *calendar = QApplication::activePopupWidget()) {
            take(*calendar, u"calendar"_s);
            calendar->close();
        }
        auto *state = window.findChild<input::IdCombo *>(u"cboState"_s);
        state->setFocus();
        state->showPopup();
        QApplication::processEvents();
        take(*state->view()->window(), u"list"_s);
        state->hidePopup();
        QApplication::processEvents();
        take(window, u"focus"_s);
    }

    void takeDialog(QAbstractButton *button)
    {
        QTimer::singleShot(200, button, [this, button] {
            QWidget *dialog = QApplication::activeModalWidget();
            m_good = m_good && dialog;
            if (!dialog)
                return;
            take(*dialog, button->objectName());
            dialog->close();
        });
        button->click();
    }

    QDir m_folder;
    bool m_good = true;
};

} // namespace

/// Shows the gallery; with --grab FOLDER writes pictures of its pages and boxes there instead.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Quorvantis gallery"_s);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption grab(u"grab"_s, u"Write pictures of all pages to a folder."_s,
                                  u"folder"_s);
    parser.addOption(grab);
    parser.process(application);

    base::setEnvironment(base::Environment::ofProcess());
    theme::install(application);
    input::DialogPrompts prompts;
    const base::ScopedPrompts scope(prompts);

    gallery::GalleryWindow window;
    window.resize(1366, 728);
    window.show();
    if (!parser.isSet(grab))
        return QApplication::exec();
    return Photographer(parser.value(grab)).takeAll(window) ? 0 : 1;
}
