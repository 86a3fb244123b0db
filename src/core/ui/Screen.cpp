#include "core/ui/Screen.h"

#include "core/ui/FormLayout.h"
#include "core/ui/GridSetting.h"
#include "platform/base/Trapped.h"
#include "platform/grid/GridView.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTextEdit>
#include <QWindow>

Screen::Screen(const QString &formName, const QString &title, QWidget *parent, StoreWhat storeWhat)
    : QDialog(parent)
    , m_formName(formName)
    , m_storeWhat(storeWhat)
{
    setObjectName(formName);
    setWindowTitle(title);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

Screen::~Screen() = default;

void Screen::setMode(Mode mode)
{
    m_mode = mode;
    EnableControls();
}

void Screen::edited()
{
    if (m_mode == Mode::Browse)
        setMode(Mode::Modify);
}

void Screen::setCloseEnabled(bool enabled)
{
    m_closeEnabled = enabled;
    applyCloseButton();
}

void Screen::applyCloseButton()
{
    // Through the window itself: changing a widget's flags hides it, which would end a modal
    // screen.
    if (QWindow *window = windowHandle())
        window->setFlag(Qt::WindowCloseButtonHint, m_closeEnabled);
}

int Screen::showModal()
{
    const base::Interlude interlude;
    return exec();
}

void Screen::unload()
{
    done(Accepted);
}

void Screen::setVisible(bool visible)
{
    if (visible && !m_loaded) {
        m_loaded = true;
        if (m_storeWhat == StoreWhat::SizeOnly)
            ApplyCenteredFormLayout(this, m_formName);
        else
            ApplyFormLayout(this, m_formName);
        // The first control is entered as if by Tab: what one types replaces what it holds.
        if (!focusWidget())
            focusNextChild();
    }
    QDialog::setVisible(visible);
    if (visible)
        applyCloseButton();
}

void Screen::reject()
{
    if (m_closeEnabled && mayClose())
        done(Rejected);
}

void Screen::done(int result)
{
    if (m_loaded) {
        unloading();
        // What keeps one layout from being stored keeps the others too: it is reported once.
        base::trapped("Screen", "Form_Unload", [this] {
            const base::Whole layouts;
            for (const AdoptedGrid &adopted : std::as_const(m_grids))
                SaveGridSetting(m_formName, adopted.name, *adopted.view);
            StoreFormLayout(*this, m_formName, m_storeWhat == StoreWhat::Placement);
        });
        // The next opening is a new one.
        m_loaded = false;
    }
    QDialog::done(result);
}

void Screen::watch(const QList<QWidget *> &controls)
{
    for (QWidget *control : controls)
        watch(control);
}

void Screen::changedByUser()
{
    if (m_displaying == 0)
        edited();
}

void Screen::watch(QWidget *control)
{
    const auto changed = [this] { changedByUser(); };
    if (control->metaObject()->indexOfSignal("edited()") >= 0) {
        // An input of our own tells by itself which changes are the user's.
        connect(control, SIGNAL(edited()), this, SLOT(changedByUser()));
    } else if (auto *grid = qobject_cast<grid::GridView *>(control)) {
        connect(grid, &grid::GridView::changed, this, changed);
    } else if (auto *line = qobject_cast<QLineEdit *>(control)) {
        connect(line, &QLineEdit::textEdited, this, changed);
    } else if (auto *combo = qobject_cast<QComboBox *>(control)) {
        connect(combo, &QComboBox::activated, this, changed);
        connect(combo, &QComboBox::editTextChanged, this, [this, combo] {
            if (combo->lineEdit() && combo->lineEdit()->isModified())
                changedByUser();
        });
    } else if (auto *button = qobject_cast<QAbstractButton *>(control)) {
        connect(button, &QAbstractButton::clicked, this, changed);
    } else if (auto *memo = qobject_cast<QPlainTextEdit *>(control)) {
        connect(memo, &QPlainTextEdit::textChanged, this, changed);
    } else if (auto *text = qobject_cast<QTextEdit *>(control)) {
        connect(text, &QTextEdit::textChanged, this, changed);
    } else if (auto *spin = qobject_cast<QSpinBox *>(control)) {
        connect(spin, &QSpinBox::valueChanged, this, changed);
    } else {
        qWarning("%s can't be watched", qUtf8Printable(control->objectName()));
    }
}

void Screen::adoptGrid(grid::GridView *grid, const QString &name)
{
    m_grids.append({grid, name});
    SetGridSetting(m_formName, name, *grid);
}
