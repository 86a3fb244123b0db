#include "platform/report/designer/PropertyEditors.h"

#include "platform/input/Theme.h"
#include "platform/report/designer/PropertyPanel.h"
#include "platform/report/expr/Expression.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStandardItemModel>
#include <QTreeView>

namespace report {
namespace {

using namespace Qt::StringLiterals;

using P = PropertyKind;

struct NamedColor
{
    QString name;
    QColor color;
};

const QList<NamedColor> &colors()
{
    static const QList<NamedColor> all{{u"Black"_s, Qt::black},
                                       {u"Dark grey"_s, QColor(0x50, 0x58, 0x60)},
                                       {u"Grey"_s, QColor(0x96, 0x9e, 0xa4)},
                                       {u"Light grey"_s, QColor(0xf0, 0xf0, 0xf0)},
                                       {u"White"_s, Qt::white},
                                       {u"House blue"_s, QColor(0x24, 0x47, 0x6d)},
                                       {u"House orange"_s, QColor(0xc8, 0x69, 0x1e)},
                                       {u"House sand"_s, QColor(0xf1, 0xef, 0xe2)},
                                       {u"Blue"_s, QColor(0x00, 0x72, 0xb2)},
                                       {u"Light blue"_s, QColor(0xdd, 0xe8, 0xf4)},
                                       {u"Green"_s, QColor(0x2e, 0x7d, 0x32)},
                                       {u"Light green"_s, QColor(0xe3, 0xf0, 0xdd)},
                                       {u"Red"_s, QColor(0xb0, 0x00, 0x00)},
                                       {u"Light red"_s, QColor(0xf8, 0xdf, 0xdc)},
                                       {u"Yellow"_s, QColor(0xff, 0xf2, 0xb3)}};
    return all;
}

const QStringList &formats()
{
    static const QStringList all{u""_s,
                                 u"0"_s,
                                 u"0.00"_s,
                                 u"#,##0"_s,
                                 u"#,##0.00"_s,
                                 u"0.##"_s,
                                 u"$0.00"_s,
                                 u"$#,##0.00"_s,
                                 u"0%"_s,
                                 u"0.0%"_s,
                                 u"0 hrs"_s,
                                 u"mm/dd/yyyy"_s,
                                 u"mmm d, yyyy"_s,
                                 u"mmm yyyy"_s,
                                 u"yyyy"_s,
                                 u"hh:mm AMPM"_s,
                                 u"mm/dd/yyyy hh:mm AMPM"_s};
    return all;
}

/// A value that shows what a format does.
QString sampleOf(const QString &format)
{
    if (format.isEmpty())
        return u"as it is"_s;
    const bool isDate = format.contains(u'y') || format.contains(u'd') || format.contains(u"hh"_s);
    if (isDate && !format.contains(u"hrs"_s))
        return formatted(QDateTime(QDate(2024, 3, 5), QTime(14, 30)), format);
    return formatted(format.contains(u'%') ? 0.256 : 1234.5, format);
}

void fillColors(QComboBox *box)
{
    box->setEditable(true);
    box->addItem(colorIcon({}), u"None"_s, QColor());
    for (const NamedColor &named : colors())
        box->addItem(colorIcon(named.color), named.name, named.color);
}

/// Two columns: the format, and what it makes of a value.
void fillFormats(QComboBox *box)
{
    box->setEditable(true);
    auto *model = new QStandardItemModel(box);
    for (const QString &format : formats())
        model->appendRow({new QStandardItem(format), new QStandardItem(sampleOf(format))});
    box->setModel(model);
    auto *view = new QTreeView;
    view->setRootIsDecorated(false);
    view->setHeaderHidden(true);
    view->setAllColumnsShowFocus(true);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    box->setView(view);
    view->header()->resizeSection(0, 150);
    view->setMinimumWidth(300);
}

/// Fonts that all computers have come first.
void fillFonts(QComboBox *box)
{
    box->setEditable(true);
    box->addItems({u"Arial"_s, u"Courier New"_s, u"Times New Roman"_s});
    for (const QString &family : QFontDatabase::families())
        if (box->findText(family) < 0)
            box->addItem(family);
}

QString textOfColor(const QColor &color)
{
    for (const NamedColor &named : colors())
        if (named.color == color)
            return named.name;
    return color.isValid() ? color.name() : u"None"_s;
}

/// A colour by its name in the list, "#rrggbb" or "none"; nothing for another text.
std::optional<QColor> colorOf(const QString &text)
{
    for (const NamedColor &named : colors())
        if (named.name.compare(text.trimmed(), Qt::CaseInsensitive) == 0)
            return named.color;
    if (text.trimmed().isEmpty() || text.trimmed().compare(u"none", Qt::CaseInsensitive) == 0)
        return QColor();
    const QColor color(text.trimmed());
    return color.isValid() ? std::optional(color) : std::nullopt;
}

QString editText(const Property &property)
{
    if (property.isMixed)
        return {};
    if (property.kind == P::Color)
        return textOfColor(property.value.value<QColor>());
    if (property.kind == P::Count || property.kind == P::Points)
        return property.value.toString();
    return property.kind == P::Distance ? shownValue(property) : property.value.toString();
}

/// What was typed, as the property takes it; nothing when it can't be read or says nothing new.
std::optional<QVariant> typedValue(const Property &property, const QString &text)
{
    // Leaving an editor without a change must not give several objects the lead's value.
    if (text == editText(property))
        return std::nullopt;
    bool isNumber = false;
    switch (property.kind) {
    case P::Distance:
        if (const auto length = typedLength(text))
            return QVariant(*length);
        return std::nullopt;
    case P::Points: {
        const double points = QString(text).remove(u"pt"_s).trimmed().toDouble(&isNumber);
        return isNumber && points > 0 ? std::optional(QVariant(points)) : std::nullopt;
    }
    case P::Count: {
        const int count = text.trimmed().toInt(&isNumber);
        return isNumber && count >= 0 ? std::optional(QVariant(count)) : std::nullopt;
    }
    case P::Color:
        if (const auto color = colorOf(text))
            return QVariant(*color);
        return std::nullopt;
    default:
        return QVariant(text);
    }
}

} // namespace

QIcon colorIcon(const QColor &color)
{
    QPixmap pixmap(28, 28);
    pixmap.setDevicePixelRatio(2);
    pixmap.fill(color.isValid() ? color : Qt::white);
    QPainter painter(&pixmap);
    painter.setPen(theme::lineColor());
    painter.drawRect(QRectF(0.5, 0.5, 13, 13));
    if (!color.isValid())
        painter.drawLine(QPointF(1, 13), QPointF(13, 1));
    return pixmap;
}

PropertyDelegate::PropertyDelegate(PropertyPanel &panel)
    : QStyledItemDelegate(&panel)
    , m_panel(panel)
{}

QWidget *PropertyDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                        const QModelIndex &index) const
{
    const Property *property = m_panel.propertyAt(index);
    if (!property || property->kind == P::Flag || property->kind == P::Action)
        return nullptr;
    QWidget *editor = makeEditor(*property, parent);
    editor->setObjectName(u"attribute"_s);
    editor->setAccessibleName(property->caption);
    return editor;
}

QWidget *PropertyDelegate::makeEditor(const Property &property, QWidget *parent) const
{
    switch (property.kind) {
    case P::Choice:
    case P::Color:
    case P::Font:
    case P::Format:
    case P::Picture:
    case P::Style: {
        auto *box = new QComboBox(parent);
        box->setFont(theme::textFont());
        if (property.kind == P::Choice)
            box->addItems(property.choices);
        else if (property.kind == P::Color)
            fillColors(box);
        else if (property.kind == P::Font)
            fillFonts(box);
        else if (property.kind == P::Format)
            fillFormats(box);
        else if (property.kind == P::Picture)
            m_panel.fillPictures(box);
        else
            m_panel.fillStyles(box);
        connect(box, &QComboBox::activated, this, [this, box] {
            // A choice is meant as soon as it is made; createEditor is const, the signals are not.
            Q_EMIT const_cast<PropertyDelegate *>(this)->commitData(box);
            Q_EMIT const_cast<PropertyDelegate *>(this)->closeEditor(box);
        });
        return box;
    }
    case P::Words:
    case P::Memo: {
        auto *edit = new QPlainTextEdit(parent);
        edit->setTabChangesFocus(true);
        edit->setFont(theme::textFont());
        connect(edit, &QPlainTextEdit::textChanged, this,
                [this, edit, property] { m_panel.checkTyped(property, edit->toPlainText()); });
        return edit;
    }
    default: {
        auto *edit = new QLineEdit(parent);
        edit->setFont(theme::textFont());
        if (property.kind == P::Expression)
            connect(edit, &QLineEdit::textChanged, this,
                    [this, property](const QString &text) { m_panel.checkTyped(property, text); });
        return edit;
    }
    }
}

void PropertyDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const Property *property = m_panel.propertyAt(index);
    if (!property)
        return;
    if (auto *box = qobject_cast<QComboBox *>(editor)) {
        if (property->kind == P::Choice) {
            box->setCurrentIndex(property->isMixed ? -1 : property->value.toInt());
        } else if (box->isEditable()) {
            // The list opens at the value, also when its text is one that the user typed.
            box->setCurrentIndex(box->findText(editText(*property)));
            box->setEditText(editText(*property));
            box->lineEdit()->selectAll();
        } else {
            box->setCurrentIndex(qMax(0, box->findText(editText(*property))));
        }
    } else if (auto *memo = qobject_cast<QPlainTextEdit *>(editor)) {
        memo->setPlainText(editText(*property));
        memo->selectAll();
    } else if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        line->setText(editText(*property));
        line->selectAll();
    }
}

void PropertyDelegate::setModelData(QWidget *editor, QAbstractItemModel *,
                                    const QModelIndex &index) const
{
    const Property *property = m_panel.propertyAt(index);
    if (!property)
        return;
    std::optional<QVariant> value;
    if (auto *box = qobject_cast<QComboBox *>(editor)) {
        if (property->kind == P::Choice) {
            // A list that stands on nothing shows several values, and none was chosen.
            if (box->currentIndex() >= 0 &&
                (property->isMixed || box->currentIndex() != property->value.toInt()))
                value = box->currentIndex();
        } else if (property->kind == P::Style) {
            if (property->isMixed || box->currentData().toString() != property->value.toString())
                value = box->currentData();
        } else if (property->kind != P::Picture ||
                   box->currentText() != PropertyPanel::fromFile()) {
            value = typedValue(*property, box->currentText());
        }
    } else if (auto *memo = qobject_cast<QPlainTextEdit *>(editor)) {
        value = typedValue(*property, memo->toPlainText());
    } else if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        value = typedValue(*property, line->text());
    }
    if (value)
        m_panel.give(index, *value);
}

void PropertyDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                            const QModelIndex &) const
{
    QRect place = option.rect;
    if (qobject_cast<QPlainTextEdit *>(editor)) {
        constexpr int MemoHeight = 66;
        place.setHeight(MemoHeight);
        // At the foot of the panel a memo opens upwards.
        if (place.bottom() > editor->parentWidget()->height())
            place.moveBottom(editor->parentWidget()->height());
    }
    editor->setGeometry(place);
}

QSize PropertyDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return QStyledItemDelegate::sizeHint(option, index).expandedTo(QSize(0, 22));
}

void PropertyDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    painter->setPen(QColor(225, 227, 228));
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    if (index.column() == 0)
        painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
}

/// Enter takes what stands in lists and memos too; a line of a memo is begun with Shift.
bool PropertyDelegate::eventFilter(QObject *object, QEvent *event)
{
    auto *editor = qobject_cast<QWidget *>(object);
    const bool isOwn = qobject_cast<QPlainTextEdit *>(object) || qobject_cast<QComboBox *>(object);
    if (isOwn && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
            !(key->modifiers() & Qt::ShiftModifier)) {
            Q_EMIT commitData(editor);
            Q_EMIT closeEditor(editor);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

} // namespace report
