#include "gallery/GalleryWindow.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/input/DialogPrompts.h"
#include "platform/input/Theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

using namespace Qt::StringLiterals;

/// Shows the gallery; with --grab FOLDER writes a picture of each page there instead.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Quorvantis gallery"_s);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption grab(u"grab"_s, u"Write a picture of each page to a folder."_s,
                                  u"folder"_s);
    parser.addOption(grab);
    parser.process(application);

    base::setEnvironment(base::Environment::ofProcess());
    theme::install(application);
    input::DialogPrompts prompts;
    const base::ScopedPrompts scope(prompts);

    gallery::GalleryWindow window;
    window.resize(1366, 768 - 40);
    window.show();
    if (!parser.isSet(grab))
        return QApplication::exec();

    const QDir folder(parser.value(grab));
    if (!folder.mkpath(u"."_s))
        return 1;
    for (const QString &page : {u"Inputs"_s, u"Grid"_s, u"Messages"_s, u"Pictures"_s}) {
        window.showPage(page);
        QApplication::processEvents();
        if (!window.grab().save(folder.filePath(page.toLower() + u".png"_s)))
            return 1;
    }
    return 0;
}
