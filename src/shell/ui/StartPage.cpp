#include "shell/ui/StartPage.h"

#include "core/General.h"
#include "platform/base/Environment.h"
#include "platform/input/LinkLabel.h"
#include "platform/input/Theme.h"
#include "shell/MenuTree.h"
#include "shell/ui/ScreenEntries.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace shell {
namespace {

constexpr int margin = 28;
constexpr int iconSize = 24;

/// The label's text without the doubled ampersand of a caption.
QString plainText(const char *label)
{
    return QString::fromLatin1(label).replace(u"&&"_s, u"&"_s);
}

} // namespace

StartPage::StartPage(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"picStartPage"_s);
    lblCompany = new QLabel(this);
    lblCompany->setObjectName(u"lblCompany"_s);
    lblCompany->setFont(theme::font(18, true));
    lblCompany->setTextFormat(Qt::PlainText);
    lblCompany->setWordWrap(true);
    lblToday = new QLabel(this);
    lblToday->setObjectName(u"lblToday"_s);
    lblToday->setFont(theme::font(11));

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(2 * margin, 2 * margin, 2 * margin, 2 * margin);
    column->setSpacing(6);
    column->addWidget(lblCompany);
    column->addWidget(lblToday);
    column->addSpacing(margin);
    addLinks(column);
    column->addStretch();
}

void StartPage::addLinks(QVBoxLayout *column)
{
    auto *rows = new QGridLayout;
    rows->setHorizontalSpacing(14);
    rows->setVerticalSpacing(12);
    int row = 0;
    for (int index = 0; const QuickLink &each : quickLinks()) {
        if (isQuickLinkJoined(index) || index == HelpLink) {
            auto *picture = new QLabel(this);
            picture->setPixmap(theme::icon(QString::fromLatin1(each.icon)).pixmap(iconSize));
            auto *link = new input::LinkLabel(plainText(each.label), this);
            link->setObjectName(u"lnkStart%1"_s.arg(index));
            link->setFont(theme::font(10, true));
            auto *purpose = new QLabel(
                u"%1 (%2)"_s.arg(QString::fromLatin1(each.purpose), QString::fromLatin1(each.key)),
                this);
            purpose->setFont(theme::font(10));
            connect(link, &input::LinkLabel::clicked, this,
                    [this, index] { Q_EMIT quickLinkClicked(index); });
            rows->addWidget(picture, row, 0);
            rows->addWidget(link, row, 1);
            rows->addWidget(purpose, row, 2);
            ++row;
        }
        ++index;
    }
    rows->setColumnStretch(2, 1);
    column->addLayout(rows);
}

void StartPage::LoadData()
{
    const QString company = GetOption(u"GEN_COMPANY_NAME"_s, false).trimmed();
    lblCompany->setText(company.isEmpty() ? QApplication::applicationName() : company);
    // The program speaks one language, whatever the computer is set to.
    lblToday->setText(QLocale(QLocale::English, QLocale::UnitedStates)
                          .toString(base::today(), u"dddd, MMMM d, yyyy"_s));
}

void StartPage::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), theme::formColor());
    painter.setPen(theme::lineColor());
    painter.setBrush(Qt::white);
    const int inset = margin / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), 6, 6);
}

} // namespace shell
