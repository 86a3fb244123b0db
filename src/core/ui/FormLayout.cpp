#include "core/ui/FormLayout.h"

#include "core/Options.h"
#include "core/ui/SmallScreen.h"
#include "platform/base/Environment.h"
#include "platform/base/Trapped.h"
#include "platform/input/Theme.h"

#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QPointer>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int TwipsPerPixel = 15;
constexpr char Module[] = "General Function";

struct MainForm
{
    QPointer<const QWidget> window;
    int headerBarHeight = 0;
    int sideBarWidth = 0;
};

MainForm &mainForm()
{
    static MainForm form;
    return form;
}

/// A stored measure in pixels; nothing when it is missing or no number.
std::optional<int> storedMeasure(const QString &measure, const QString &formName)
{
    bool ok = false;
    const double twips = GetOption(measure + formName, true).toDouble(&ok);
    return ok ? std::optional(pixelsOf(qRound(twips))) : std::nullopt;
}

QRect centredIn(QSize size, const QRect &area)
{
    QRect rectangle(QPoint(), size);
    rectangle.moveCenter(area.center());
    return rectangle;
}

QScreen *screenAt(const QRect &rectangle)
{
    if (QScreen *screen = QGuiApplication::screenAt(rectangle.center()))
        return screen;
    if (QScreen *screen = QGuiApplication::screenAt(rectangle.topLeft()))
        return screen;
    return QGuiApplication::primaryScreen();
}

/// What a centred form is centred in: its parent's window, the main form, the screen.
QRect surroundings(const QWidget &form)
{
    if (const QWidget *parent = form.parentWidget(); parent && parent->window()->isVisible())
        return parent->window()->frameGeometry();
    if (mainForm().window && mainForm().window->isVisible())
        return mainForm().window->frameGeometry();
    return QGuiApplication::primaryScreen()->availableGeometry();
}

/// The place of a form that has none stored.
QPoint firstPlace(QSize size, const QWidget &form)
{
    const MainForm &main = mainForm();
    if (!main.window || !main.window->isVisible())
        return centredIn(size, surroundings(form)).topLeft();
    return main.window->frameGeometry().topLeft() +
           QPoint(main.sideBarWidth, 2 * main.headerBarHeight);
}

/// What the window's frame adds to the form's own size: known once the form was shown, a guess
/// before.
QSize frameOf(const QWidget &form)
{
    if (form.testAttribute(Qt::WA_WState_Created))
        return form.frameGeometry().size() - form.size();
    const int border = 2 * form.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &form);
    const int title = form.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &form);
    return {2 * border, title + 2 * border};
}

void applyIcon(QWidget &form)
{
    const QString icon = base::applicationPath(u"\\Lib\\Icon.ico"_s);
    form.setWindowIcon(QFile::exists(icon) ? QIcon(icon) : theme::programIcon());
}

void applyLayout(QWidget &form, const QString &formName, bool centred)
{
    applyIcon(form);
    std::optional<int> left;
    std::optional<int> top;
    if (!centred) {
        left = storedMeasure(u"LEFT"_s, formName);
        top = storedMeasure(u"TOP"_s, formName);
    }
    const auto height = storedMeasure(u"HEIGHT"_s, formName);
    const auto width = storedMeasure(u"WIDTH"_s, formName);
    theme::ApplyFormColors(&form);
    form.ensurePolished();
    QSize size = form.size();
    // A form that was never sized takes what its controls ask for.
    if (!form.testAttribute(Qt::WA_Resized))
        size = form.sizeHint();
    letScroll(form, form.screen()->availableGeometry().size() - frameOf(form));
    if (width)
        size.setWidth(*width);
    if (height)
        size.setHeight(*height);
    size = size.expandedTo(form.minimumSizeHint()).expandedTo(form.minimumSize());

    const QSize frame = frameOf(form);
    QPoint place = centred ? centredIn(size + frame, surroundings(form)).topLeft()
                           : firstPlace(size + frame, form);
    place = QPoint(left.value_or(place.x()), top.value_or(place.y()));
    const QRect wanted(place, size + frame);
    const QRect kept = keptWithin(wanted, screenAt(wanted)->availableGeometry());
    form.resize(kept.size() - frame);
    form.move(kept.topLeft());
}

} // namespace

int twipsOf(int pixels)
{
    return pixels * TwipsPerPixel;
}

int pixelsOf(int twips)
{
    return qRound(static_cast<double>(twips) / TwipsPerPixel);
}

void ApplyFormLayout(QWidget *form, const QString &formName)
{
    base::trapped(Module, "ApplyFormLayout", [&] { applyLayout(*form, formName, false); });
}

void ApplyCenteredFormLayout(QWidget *form, const QString &formName)
{
    base::trapped(Module, "ApplyFormLayout", [&] { applyLayout(*form, formName, true); });
}

void StoreFormLayout(const QWidget &form, const QString &formName, bool withPlace)
{
    // The size that the user gave, not that of a form which fills the screen for the moment.
    const QRect normal = form.isMaximized() || form.isFullScreen() ? form.normalGeometry()
                                                                   : QRect(form.pos(), form.size());
    const auto store = [&](const QString &measure, int pixels) {
        SetOption(measure + formName, twipsOf(pixels), true);
    };
    base::trapped(Module, "StoreFormLayout", [&] {
        const base::Whole measures;
        if (withPlace) {
            store(u"LEFT"_s, normal.x());
            store(u"TOP"_s, normal.y());
        }
        store(u"HEIGHT"_s, normal.height());
        store(u"WIDTH"_s, normal.width());
    });
}

void setMainFormParts(const MainFormParts &parts)
{
    mainForm() = {parts.window, parts.headerBarHeight, parts.sideBarWidth};
}

QRect keptWithin(QRect rectangle, const QRect &area)
{
    rectangle.setSize(rectangle.size().boundedTo(area.size()));
    const auto clamp = [](int at, int length, int from, int total) {
        return qBound(from, at, from + total - length);
    };
    rectangle.moveTo(clamp(rectangle.x(), rectangle.width(), area.x(), area.width()),
                     clamp(rectangle.y(), rectangle.height(), area.y(), area.height()));
    return rectangle;
}
