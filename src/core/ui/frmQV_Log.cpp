#include "core/ui/frmQV_Log.h"

#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"

#include <QApplication>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "frmQV_Log";

/// Names in a log may come from a handheld in the one-byte characters of its system.
QString decoded(const QByteArray &bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

} // namespace

frmQV_Log::frmQV_Log(QWidget *parent)
    : Screen(u"frmQV_Log"_s, u"Log File"_s, parent)
{
    resize(640, 420);
    buildForm();
    load();
}

void frmQV_Log::ShowQV_LogDetails(QWidget *parent)
{
    frmQV_Log form(parent ? parent : QApplication::activeWindow());
    form.showModal();
}

void frmQV_Log::buildForm()
{
    input::FormBuilder form(this);
    txtLog = new QPlainTextEdit(this);
    txtLog->setObjectName(u"txtLog"_s);
    txtLog->setAccessibleName(u"Log File"_s);
    txtLog->setReadOnly(true);
    txtLog->setTabChangesFocus(true);
    form.widget(txtLog, true);
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    connect(cmdExit, &QPushButton::clicked, this, &frmQV_Log::cmdExit_Click);
}

void frmQV_Log::load()
{
    base::trapped(Module, "Form_Load", [&] {
        QFile file(base::applicationPath(u"\\Log\\QVLog.txt"_s));
        if (!file.exists())
            return;
        if (!file.open(QIODevice::ReadOnly))
            throw base::Error(base::ErrorNumber::PathAccess, file.errorString());
        txtLog->setPlainText(decoded(file.readAll()));
    });
}

void frmQV_Log::cmdExit_Click()
{
    unload();
}
