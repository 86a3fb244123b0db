#include "platform/input/Theme.h"

#include "platform/input/Style.h"

#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

double channel(double value)
{
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

/// How much two colours stand out from one another, 1 to 21; text wants 4.5, pictures 3.
double contrast(const QColor &one, const QColor &other)
{
    const auto luminance = [](const QColor &color) {
        return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF()) +
               0.0722 * channel(color.blueF());
    };
    const double light = std::max(luminance(one), luminance(other));
    const double dark = std::min(luminance(one), luminance(other));
    return (light + 0.05) / (dark + 0.05);
}

int inkIn(const QImage &image, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color;
    }
    return count;
}

} // namespace

TEST(Theme, TextStandsOutFromItsGround)
{
    EXPECT_GE(contrast(theme::mainColor(), theme::formColor()), 4.5);
    EXPECT_GE(contrast(theme::mainColor(), theme::panelColor()), 4.5);
    EXPECT_GE(contrast(theme::textColor(), theme::lockedColor()), 4.5);
    EXPECT_GE(contrast(theme::selectionTextColor(), theme::selectionColor()), 4.5);
    EXPECT_GE(contrast(theme::accentColor(), theme::formColor()), 3.0);
    EXPECT_GE(contrast(theme::selectionColor(), theme::formColor()), 3.0);
}

TEST(Theme, ALabelWithALookOfItsOwnKeepsIt)
{
    QWidget form;
    QLabel own(&form);
    QLabel usual(&form);
    theme::setOwnLook(&own, theme::font(20), Qt::red);
    theme::ApplyFormColors(&form);
    EXPECT_EQ(own.palette().color(QPalette::WindowText), QColor(Qt::red));
    EXPECT_EQ(own.font().pointSize(), 20);
    EXPECT_EQ(usual.palette().color(QPalette::WindowText), theme::mainColor());
}

TEST(Icon, EveryNameGivesAPictureInEveryState)
{
    for (const QString &name : theme::iconNames()) {
        const QIcon icon = theme::icon(name);
        const QImage normal = icon.pixmap(24).toImage();
        const QImage disabled = icon.pixmap(QSize(24, 24), QIcon::Disabled).toImage();
        EXPECT_GT(inkIn(normal, theme::mainColor()) + inkIn(normal, theme::accentColor()), 20)
            << name.toStdString();
        EXPECT_EQ(inkIn(disabled, theme::mainColor()) + inkIn(disabled, theme::accentColor()), 0)
            << name.toStdString();
        EXPECT_NE(disabled, QImage()) << name.toStdString();
    }
    EXPECT_TRUE(theme::icon(u"no such picture"_s).isNull());
}

TEST(Icon, IsDrawnAtTheScaleOfTheScreen)
{
    const QPixmap twofold = theme::icon(u"save"_s).pixmap(QSize(24, 24), 2.0);
    EXPECT_EQ(twofold.size(), QSize(48, 48));
    EXPECT_DOUBLE_EQ(twofold.devicePixelRatio(), 2.0);
    // Lines two units wide become four pixels of full colour, not a blur of two.
    const QImage image = twofold.toImage();
    int longest = 0;
    for (int x = 0, run = 0; x < image.width(); ++x) {
        run = image.pixelColor(x, 41) == theme::mainColor() ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    EXPECT_GE(longest, 20);
    // On a dark ground it turns light.
    const QImage light = theme::icon(u"find"_s, theme::Tone::OnDark).pixmap(24).toImage();
    EXPECT_GT(inkIn(light, QColor(Qt::white)), 10);
    EXPECT_EQ(inkIn(light, theme::mainColor()), 0);
}

TEST(Header, FillsAnyWidth)
{
    QImage image(3000, theme::headerHeight, QImage::Format_ARGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    theme::paintHeader(painter, image.rect());
    painter.end();
    EXPECT_EQ(inkIn(image, QColor(Qt::magenta)), 0);
    EXPECT_GT(inkIn(image.copy(0, 0, 280, theme::headerHeight), QColor(Qt::white)), 500);
}
