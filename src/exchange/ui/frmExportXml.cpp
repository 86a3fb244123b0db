#include "exchange/ui/frmExportXml.h"

#include "exchange/Export.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int StepMilliseconds = 1000;
constexpr int MarkSize = 20;

} // namespace

frmExportXml::frmExportXml(QWidget *parent)
    : Screen(u"frmExportXml"_s, u"Export to XML"_s, parent, StoreWhat::SizeOnly)
{
    buildForm();
    tmrExport = new QTimer(this);
    tmrExport->setObjectName(u"tmrExport"_s);
    tmrExport->setInterval(StepMilliseconds);
    connect(tmrExport, &QTimer::timeout, this, &frmExportXml::tmrExport_Timer);
    tmrExport->start();
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

frmExportXml::~frmExportXml()
{
    QApplication::restoreOverrideCursor();
}

void frmExportXml::buildForm()
{
    auto *steps = new QWidget(this);
    auto *rows = new QGridLayout(steps);
    rows->setColumnStretch(1, 1);
    rows->setColumnMinimumWidth(0, MarkSize);
    const auto addLabel = [&](int row, const QString &name, const QString &text) {
        auto *label = new QLabel(text, steps);
        label->setObjectName(name);
        rows->addWidget(label, row, 1);
        return label;
    };
    const auto addStep = [&](const QString &name, const QString &text) {
        const int row = rows->rowCount();
        addLabel(row, u"lbl"_s + name, text);
        auto *mark = new QLabel(steps);
        mark->setObjectName(u"img"_s + name);
        mark->setAccessibleName(text + u": done"_s);
        mark->setPixmap(theme::icon(u"complete"_s).pixmap(MarkSize, MarkSize));
        rows->addWidget(mark, row, 0);
        mark->hide();
        return mark;
    };
    imgQuery = addStep(u"Query"_s, u"Querying Quorvantis Data"_s);
    imgExport = addStep(u"Export"_s, u"Exporting Quorvantis Data"_s);
    imgGenerate = addStep(u"Generate"_s, u"Generating XML"_s);
    lblDone = addLabel(rows->rowCount(), u"lblDone"_s, u"Done"_s);
    // What appears later must not push the rest about.
    for (QWidget *later : {imgQuery, imgExport, imgGenerate, lblDone}) {
        QSizePolicy policy = later->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        later->setSizePolicy(policy);
    }
    lblDone->hide();

    input::FormBuilder form(this);
    form.widget(steps);
    form.finish();
    resize(320, sizeHint().height());
}

void frmExportXml::tmrExport_Timer()
{
    if (m_step == 1) {
        imgQuery->show();
        m_step = 2;
    } else if (m_step == 2) {
        imgExport->show();
        m_step = 3;
    } else if (m_done || m_failed) {
        unload();
    } else {
        // No second one while this one asks something.
        tmrExport->stop();
        m_done = exchange::GenrateXML(m_failed);
        imgGenerate->show();
        lblDone->show();
        tmrExport->start();
    }
}
