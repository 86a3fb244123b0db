#include "shell/ui/StartPage.h"

#include "core/Options.h"
#include "platform/base/Environment.h"
#include "platform/input/LinkLabel.h"
#include "platform/input/Theme.h"
#include "shell/QuickLinks.h"
#include "shell/ui/QuickLinkActions.h"

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
    lblCompany->setTextFormat(Qt::PlainText);
    lblCompany->setWordWrap(true);
    lblToday = new QLabel(this);
    lblToday->setObjectName(u"lblToday"_s);

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
    rows->setColumnStretch(2, 1);
    for (int index = 0; index < static_cast<int>(quickLinks().size()); ++index) {
        if (isQuickLinkJoined(index))
            addLink(rows, index);
    }
    column->addLayout(rows);
}

void StartPage::addLink(QGridLayout *rows, int index)
{
    const QuickLink &each = quickLinks()[static_cast<std::size_t>(index)];
    const auto text = [](const char *latin1) { return QString::fromLatin1(latin1); };
    auto *picture = new QLabel(this);
    picture->setPixmap(theme::icon(text(each.icon)).pixmap(iconSize));
    auto *link = new input::LinkLabel(plainText(each.label), this);
    link->setObjectName(u"lnkStart%1"_s.arg(index));
    auto *purpose = new QLabel(u"%1 (%2)"_s.arg(text(each.purpose), text(each.key)), this);
    connect(link, &input::LinkLabel::clicked, this,
            [this, index] { Q_EMIT quickLinkClicked(index); });
    const int row = rows->rowCount();
    rows->addWidget(picture, row, 0);
    rows->addWidget(link, row, 1);
    rows->addWidget(purpose, row, 2);
    m_purposes.append(purpose);
}

void StartPage::applyFonts()
{
    lblCompany->setFont(theme::font(18, true));
    lblToday->setFont(theme::font(11));
    for (QLabel *purpose : std::as_const(m_purposes)) {
        purpose->setFont(theme::font(9));
        QPalette colours = purpose->palette();
        colours.setColor(QPalette::WindowText, theme::textColor());
        purpose->setPalette(colours);
    }
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
