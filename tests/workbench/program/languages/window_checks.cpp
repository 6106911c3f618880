// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "window_checks.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionDockWidget>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/** Widgets whose contents are no texts of the program's. */
const QStringList data_widgets = {
    u"mCommands"_s,    // commands and what the command reference says of them, which is English
    u"commandUsage"_s, // how a command is written
    u"commandLine"_s,  // a command
    u"mCompList"_s,    // names of components
    u"mPathList"_s,    // directories
    u"mFontFamily"_s,  // names of fonts
    u"mFontSize"_s,    // numbers
    u"listView"_s,     // files
    u"treeView"_s,     // files
    u"sidebar"_s,      // folders
    u"lookInCombo"_s,  // folders
    u"qt_file_dialog_name"_s,
};

/** Texts of parts of windows that are data too. */
bool is_data(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (data_widgets.contains(widget->objectName()))
            return true;
        // What a form offers as a value is a word of the command language.
        if (widget->objectName().startsWith(u"value") && qobject_cast<const QComboBox*>(widget))
            return true;
        if (widget->isWindow())
            break;
    }
    return false;
}

QString place_of(const QObject* object, const char* property)
{
    QStringList names;
    for (const QObject* each = object; each; each = each->parent()) {
        if (!each->objectName().isEmpty())
            names.prepend(each->objectName());
        if (each->isWidgetType() && static_cast<const QWidget*>(each)->isWindow())
            break;
    }
    return u"%1 %2 %3"_s.arg(QLatin1StringView(object->metaObject()->className()), names.join(u'/'),
                             QLatin1StringView(property));
}

/** Whether @p widget is in the window itself; dialogs and menus are visited on their own. */
bool is_inside(const QWidget* widget, const QWidget* window)
{
    return widget->window() == window;
}

QList<const QWidget*> widgets_of(const QWidget* window)
{
    QList<const QWidget*> widgets{window};
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        // Menus open as windows of their own, but belong to the one that opens them.
        const auto* menu = qobject_cast<const QMenu*>(widget);
        if (is_inside(widget, window) ||
            (menu && menu->parentWidget() && is_inside(menu->parentWidget(), window)))
            widgets << widget;
    }
    return widgets;
}

template <class Add>
void add_item_texts(const QAbstractItemModel* model, const QModelIndex& parent, const Add& add)
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        for (int column = 0; column < model->columnCount(parent); ++column) {
            const QModelIndex index = model->index(row, column, parent);
            for (const int role : {Qt::DisplayRole, Qt::ToolTipRole})
                add(index.data(role).toString(), "item");
        }
        add_item_texts(model, model->index(row, 0, parent), add);
    }
}

QString key_of(const QString& text)
{
    return QKeySequence::mnemonic(text).toString(QKeySequence::PortableText);
}

/** Whether the user gets to @p widget by the Tab key. */
bool is_tab_stop(const QWidget* widget, const QWidget* window)
{
    if (!(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy() || !widget->isEnabled() ||
        !widget->isVisible() || !is_inside(widget, window) || widget == window)
        return false;
    return true;
}

/** The stop that @p widget stands for: of radio buttons that belong together only one is met, the first here.
 */
QWidget* stop_of(QWidget* widget)
{
    if (!qobject_cast<QRadioButton*>(widget))
        return widget;
    return widget->parentWidget()->findChild<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly);
}

} // namespace

QList<ShownText> shown_texts(const QWidget* window)
{
    QList<ShownText> texts;
    const auto adder = [&texts](const QObject* object) {
        return [&texts, object](const QString& text, const char* property) {
            if (!text.isEmpty())
                texts.append({place_of(object, property), text});
        };
    };
    const auto add_action = [&adder](const QAction* action) {
        const auto add = adder(action);
        add(action->text(), "text");
        add(action->toolTip(), "tool tip");
        add(action->statusTip(), "status tip");
        add(action->whatsThis(), "what's this");
    };
    for (const QWidget* widget : widgets_of(window)) {
        const auto add = adder(widget);
        for (const QAction* action : widget->actions())
            add_action(action);
        // That of a command line tells how its command is written.
        if (widget->objectName() != u"commandLine")
            add(widget->toolTip(), "tool tip");
        add(widget->statusTip(), "status tip");
        add(widget->whatsThis(), "what's this");
        add(widget->accessibleName(), "accessible name");
        if (is_data(widget))
            continue;
        add(widget->accessibleDescription(), "accessible description");
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            // Titles are broken where that helps them fit.
            add(button->text().replace(u'\n', u' '), "text");
        else if (const auto* label = qobject_cast<const QLabel*>(widget))
            add(label->text(), "text");
        else if (const auto* group = qobject_cast<const QGroupBox*>(widget))
            add(group->title(), "title");
        else if (const auto* menu = qobject_cast<const QMenu*>(widget))
            add(menu->title(), "title");
        else if (const auto* edit = qobject_cast<const QLineEdit*>(widget))
            add(edit->placeholderText(), "placeholder");
        else if (const auto* dock = qobject_cast<const QDockWidget*>(widget))
            add(dock->windowTitle(), "title");
        else if (const auto* combo = qobject_cast<const QComboBox*>(widget))
            add_item_texts(combo->model(), {}, add);
        else if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
            for (int i = 0; i < tabs->count(); ++i) {
                add(tabs->tabText(i), "tab");
                add(tabs->tabToolTip(i), "tool tip of a tab");
            }
        } else if (const auto* view = qobject_cast<const QAbstractItemView*>(widget)) {
            if (!view->model())
                continue;
            add_item_texts(view->model(), view->rootIndex(), add);
            for (int column = 0; column < view->model()->columnCount(); ++column)
                if (const auto* header = view->findChild<QHeaderView*>(); header && !header->isHidden())
                    add(view->model()->headerData(column, Qt::Horizontal).toString(), "header");
        }
    }
    // The console and the journals are the user's, but what a window is called is not.
    if (!window->windowTitle().isEmpty())
        texts.append({place_of(window, "title"), window->windowTitle().remove(u"[*]"_s)});
    return texts;
}

QStringList clipped_texts(const QWidget* window)
{
    QStringList clipped;
    const auto tell = [&clipped](const QWidget* widget, const QString& text, int room, int wanted) {
        clipped << u"%1: \"%2\" has %3 of %4 pixels"_s.arg(place_of(widget, ""), text, QString::number(room),
                                                           QString::number(wanted));
    };
    const auto compare = [&tell](const QWidget* widget, const QString& text, int room) {
        const int wanted = widget->fontMetrics().size(Qt::TextShowMnemonic, text).width();
        if (wanted > room)
            tell(widget, text, room, wanted);
    };
    for (const QWidget* widget : widgets_of(window)) {
        const bool is_value =
            widget->objectName().startsWith(u"value") && qobject_cast<const QComboBox*>(widget);
        if (!widget->isVisible() || (is_data(widget) && !is_value) || qobject_cast<const QMenu*>(widget))
            continue;
        const QStyle* style = widget->style();
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            if (label->text().isEmpty())
                continue;
            if (!label->wordWrap() && label->sizeHint().width() > label->width())
                tell(label, label->text(), label->width(), label->sizeHint().width());
            const int height =
                label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
            if (height > label->height())
                tell(label, label->text() + u" (height)"_s, label->height(), height);
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            if (button->text().isEmpty())
                continue;
            if (const auto* tool = qobject_cast<const QToolButton*>(button)) {
                if (tool->toolButtonStyle() == Qt::ToolButtonIconOnly && !tool->icon().isNull())
                    continue;
                // Its size hint is what the style wants for text, icon and arrow.
                if (tool->QToolButton::minimumSizeHint().width() > tool->width() &&
                    tool->QToolButton::sizeHint().width() > tool->width())
                    compare(tool, tool->text(), tool->width() - 8);
                continue;
            }
            QStyleOptionButton option;
            option.initFrom(button);
            option.text = button->text();
            option.icon = button->icon();
            option.iconSize = button->iconSize();
            QStyle::SubElement element = QStyle::SE_PushButtonContents;
            if (qobject_cast<const QCheckBox*>(button))
                element = QStyle::SE_CheckBoxContents;
            else if (qobject_cast<const QRadioButton*>(button))
                element = QStyle::SE_RadioButtonContents;
            int room = style->subElementRect(element, &option, button).width();
            if (!button->icon().isNull())
                room -= button->iconSize().width() + 4;
            compare(button, button->text(), room);
            if (button->height() < button->fontMetrics().height())
                tell(button, button->text() + u" (height)"_s, button->height(),
                     button->fontMetrics().height());
        } else if (const auto* group = qobject_cast<const QGroupBox*>(widget)) {
            compare(group, group->title(), group->width() - 16);
        } else if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
            for (int i = 0; i < tabs->count(); ++i)
                compare(tabs, tabs->tabText(i), tabs->tabRect(i).width() - 8);
        } else if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
            QStyleOptionComboBox option;
            option.initFrom(combo);
            option.editable = combo->isEditable();
            const int room =
                style->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo)
                    .width();
            compare(combo, combo->currentText(), room);
        } else if (const auto* dock = qobject_cast<const QDockWidget*>(widget)) {
            QStyleOptionDockWidget option;
            option.initFrom(dock);
            option.title = dock->windowTitle();
            option.closable = dock->features() & QDockWidget::DockWidgetClosable;
            option.floatable = dock->features() & QDockWidget::DockWidgetFloatable;
            compare(dock, dock->windowTitle(),
                    style->subElementRect(QStyle::SE_DockWidgetTitleBarText, &option, dock).width());
        } else if (const auto* tree = qobject_cast<const QTreeWidget*>(widget)) {
            for (QTreeWidgetItemIterator item(const_cast<QTreeWidget*>(tree)); *item; ++item) {
                const int room = tree->visualItemRect(*item).left() + tree->columnWidth(0) - 8;
                const int indent = tree->visualItemRect(*item).left();
                compare(tree, (*item)->text(0), std::min(room, tree->viewport()->width()) - indent - indent);
            }
        } else if (const auto* header = qobject_cast<const QHeaderView*>(widget)) {
            if (header->orientation() != Qt::Horizontal || !header->model())
                continue;
            for (int i = 0; i < header->count(); ++i)
                if (!header->isSectionHidden(i) && header->sectionSizeHint(i) > header->sectionSize(i))
                    tell(header, header->model()->headerData(i, Qt::Horizontal).toString(),
                         header->sectionSize(i), header->sectionSizeHint(i));
        } else if (const auto* edit = qobject_cast<const QLineEdit*>(widget)) {
            compare(edit, edit->placeholderText(), edit->width() - 8);
        }
    }
    return clipped;
}

QStringList mnemonic_faults(const QWidget* window)
{
    QStringList faults;
    const auto check = [&faults](const QString& where, const QStringList& texts, QStringList taken = {}) {
        for (const QString& text : texts) {
            const QString key = key_of(text);
            if (key.isEmpty())
                continue;
            if (taken.contains(key))
                faults << u"%1: %2 of \"%3\" is taken"_s.arg(where, key, text);
            taken << key;
        }
    };
    const auto texts_of = [](const QList<QAction*>& actions) {
        QStringList texts;
        for (const QAction* action : actions)
            if (action->isVisible())
                texts << action->text();
        return texts;
    };
    QStringList window_keys;
    QStringList field_texts;
    for (const QWidget* widget : widgets_of(window)) {
        if (const auto* menu = qobject_cast<const QMenu*>(widget)) {
            check(place_of(menu, "menu"), texts_of(menu->actions()));
        } else if (!qobject_cast<const QMenuBar*>(widget)) {
            for (const QAction* action : widget->actions())
                window_keys << action->shortcut().toString(QKeySequence::PortableText);
        }
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        if (button && !qobject_cast<const QToolButton*>(button)) {
            // Buttons on pages that are hidden may have the same.
            if (button->isVisible())
                field_texts << button->text();
            const QString shortcut = button->shortcut().toString(QKeySequence::PortableText);
            if (!key_of(button->text()).isEmpty() && shortcut != key_of(button->text()))
                faults << u"%1: the shortcut of \"%2\" is %3"_s.arg(place_of(button, ""), button->text(),
                                                                    shortcut);
        }
        const auto* label = qobject_cast<const QLabel*>(widget);
        if (label && label->buddy() && label->isVisible())
            field_texts << label->text();
    }
    window_keys.removeAll(QString());
    if (const auto* bar = window->findChild<QMenuBar*>(QString(), Qt::FindDirectChildrenOnly))
        field_texts << texts_of(bar->actions());
    check(place_of(window, ""), field_texts, window_keys);
    return faults;
}

QStringList nameless_widgets(const QWidget* window)
{
    QStringList nameless;
    for (const QWidget* widget : widgets_of(window)) {
        // The window manager draws the buttons of docks and the rest of the list is made up of parts of
        // others.
        if (!widget->isVisible() || widget->focusProxy() || widget->objectName() == u"qt_spinbox_lineedit")
            continue;
        const bool is_button = qobject_cast<const QAbstractButton*>(widget);
        const bool is_field =
            widget->focusPolicy() & Qt::TabFocus &&
            (qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
             qobject_cast<const QAbstractSpinBox*>(widget) ||
             qobject_cast<const QAbstractItemView*>(widget) || qobject_cast<const QPlainTextEdit*>(widget));
        if ((!is_button && !is_field) || qobject_cast<const QHeaderView*>(widget))
            continue;
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
        if (!face || face->text(QAccessible::Name).isEmpty())
            nameless << place_of(widget, "");
    }
    return nameless;
}

QStringList tab_faults(QWidget* window)
{
    QStringList faults;
    QList<QWidget*> expected;
    for (QWidget* widget : window->findChildren<QWidget*>())
        if (is_tab_stop(widget, window) && !expected.contains(stop_of(widget)))
            expected << stop_of(widget);
    if (expected.isEmpty())
        return {u"there is nothing to get to"_s};
    expected.first()->setFocus(Qt::TabFocusReason);
    QList<QWidget*> visited;
    for (qsizetype i = 0; i < expected.size(); ++i) {
        QWidget* focus = QApplication::focusWidget();
        if (!focus)
            return {u"the focus is lost"_s};
        if (visited.contains(stop_of(focus)))
            faults << place_of(focus, "comes twice in a round");
        else if (!focus->hasFocus() || !expected.contains(stop_of(focus)))
            faults << place_of(focus, "was not to come");
        visited << stop_of(focus);
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    for (const QWidget* widget : std::as_const(expected))
        if (!visited.contains(widget))
            faults << place_of(widget, "is not reached");
    return faults;
}
