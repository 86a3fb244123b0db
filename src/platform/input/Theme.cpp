#include "platform/input/Theme.h"

#include "platform/input/LinkLabel.h"
#include "platform/input/PhoneInput.h"
#include "platform/input/Style.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeView>

namespace theme {
namespace {

void setForeground(QWidget *control, const QColor &color,
                   QPalette::ColorRole role = QPalette::WindowText)
{
    QPalette colors = control->palette();
    // Not the disabled one, which has to look disabled.
    colors.setColor(QPalette::Active, role, color);
    colors.setColor(QPalette::Inactive, role, color);
    control->setPalette(colors);
}

void setBackground(QWidget *control, QPalette::ColorRole role, const QColor &color)
{
    QPalette colors = control->palette();
    colors.setColor(QPalette::Active, role, color);
    colors.setColor(QPalette::Inactive, role, color);
    colors.setColor(QPalette::Disabled, role, color);
    control->setPalette(colors);
}

/// Marks a control whose look is not that of its class.
constexpr char OwnLook[] = "ownLook";

void applyToGrid(QAbstractItemView *grid)
{
    QPalette colors = grid->palette();
    colors.setColor(QPalette::Base, Qt::white);
    colors.setColor(QPalette::AlternateBase, lockedColor());
    colors.setColor(QPalette::Highlight, selectionColor());
    colors.setColor(QPalette::HighlightedText, selectionTextColor());
    grid->setPalette(colors);
    grid->setAlternatingRowColors(true);
    // Inside a group it would take that one's bold title font.
    grid->setFont(QApplication::font(grid));
}

void applyTo(QWidget *control)
{
    if (auto *link = qobject_cast<input::LinkLabel *>(control)) {
        link->setFont(labelFont());
    } else if (qobject_cast<QLabel *>(control) || qobject_cast<QCheckBox *>(control) ||
               qobject_cast<QRadioButton *>(control)) {
        control->setFont(labelFont());
        setForeground(control, mainColor());
    } else if (qobject_cast<QPushButton *>(control) || qobject_cast<QToolButton *>(control)) {
        control->setFont(buttonFont());
        setBackground(control, QPalette::Button, panelColor());
    } else if (auto *phone = qobject_cast<input::PhoneInput *>(control)) {
        phone->setFont(textFont());
        phone->setMaxLength(14);
    } else if (qobject_cast<QLineEdit *>(control) || qobject_cast<QPlainTextEdit *>(control) ||
               qobject_cast<QTextEdit *>(control) || qobject_cast<QComboBox *>(control) ||
               qobject_cast<QAbstractSpinBox *>(control)) {
        control->setFont(textFont());
    } else if (qobject_cast<QListView *>(control)) {
        control->setFont(listFont());
        setForeground(control, mainColor(), QPalette::Text);
    } else if (auto *grid = qobject_cast<QAbstractItemView *>(control)) {
        applyToGrid(grid);
    } else if (qobject_cast<QGroupBox *>(control)) {
        control->setFont(labelFont());
        setForeground(control, mainColor());
        setBackground(control, QPalette::Window, formColor());
    } else if (qobject_cast<QFrame *>(control)) {
        setBackground(control, QPalette::Window, formColor());
    }
}

/// Parts that a control makes for itself look as that control does.
bool isOwnPart(const QWidget *control)
{
    return control->objectName().startsWith(QLatin1String("qt_")) ||
           qobject_cast<const QComboBox *>(control->parentWidget()) ||
           control->inherits("QComboBoxPrivateContainer") || control->inherits("QHeaderView") ||
           control->inherits("QLineEditIconButton") ||
           qobject_cast<const QLineEdit *>(control->parentWidget()) ||
           (control->parentWidget() &&
            control->parentWidget()->inherits("QComboBoxPrivateContainer"));
}

} // namespace

QFont font(int points, bool bold)
{
    QFont result;
    // The first that the computer has; all three have the same widths, by which forms are laid out.
    result.setFamilies(
        {QStringLiteral("Arial"), QStringLiteral("Liberation Sans"), QStringLiteral("Helvetica")});
    result.setStyleHint(QFont::SansSerif);
    result.setPointSize(points);
    result.setBold(bold);
    return result;
}

void setOwnLook(QLabel *label, const QFont &font, const QColor &color)
{
    label->setFont(font);
    setForeground(label, color);
    label->setProperty(OwnLook, true);
}

void install(QApplication &application)
{
    QApplication::setStyle(new Style);
    QApplication::setPalette(palette());
    QApplication::setFont(textFont());
    QApplication::setFont(listFont(), "QMenuBar");
    QApplication::setFont(listFont(), "QMenu");
    QApplication::setFont(listFont(), "QToolTip");
    application.setWindowIcon(programIcon());
}

void ApplyFormColors(QWidget *form)
{
    setBackground(form, QPalette::Window, formColor());
    // Each by its kind, whether a builder or the screen has made it.
    const QList<QWidget *> controls = form->findChildren<QWidget *>();
    for (QWidget *control : controls) {
        // Dialogs that a form has opened dress themselves.
        if (!control->isWindow() && !isOwnPart(control) && !control->property(OwnLook).toBool())
            applyTo(control);
    }
}

} // namespace theme
