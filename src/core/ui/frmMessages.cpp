#include "core/ui/frmMessages.h"

#include "core/ui/FormLayout.h"
#include "platform/base/Environment.h"
#include "platform/input/Theme.h"

#include <QCoreApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QMovie>

using namespace Qt::StringLiterals;

namespace {
constexpr int PictureSize = 48; // pixels
constexpr int TextWidth = 280;
constexpr int Margin = 18;
} // namespace

frmMessages::frmMessages(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(u"frmMessages"_s);
    setWindowTitle(u"Quorvantis"_s);
    imgMan = new QLabel(this);
    imgMan->setObjectName(u"imgMan"_s);
    const QString picture = base::applicationPath(u"\\Lib\\Icon\\man.gif"_s);
    if (QFile::exists(picture)) {
        auto *movie = new QMovie(picture, {}, this);
        imgMan->setMovie(movie);
        movie->start();
    } else {
        imgMan->setPixmap(theme::programIcon().pixmap(PictureSize));
    }
    lblMessage = new QLabel(
        u"Checking for Quorvantis update. Please wait this might take some time."_s, this);
    lblMessage->setObjectName(u"lblMessage"_s);
    lblMessage->setWordWrap(true);
    lblMessage->setMinimumWidth(TextWidth);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(Margin, Margin, Margin, Margin);
    row->setSpacing(Margin);
    row->addWidget(imgMan);
    row->addWidget(lblMessage, 1);
    theme::ApplyFormColors(this);
}

void frmMessages::ShowMessages()
{
    show();
    raise();
    // The work that follows doesn't come back to the message loop.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
