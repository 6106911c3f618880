// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/search/CommandSearch.h"

#include "frame/Alive.h"
#include "ui_CommandSearch.h"
#include "workbench/application/search/SearchModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMainWindow>
#include <QScrollBar>
#include <QSet>
#include <QStyledItemDelegate>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** How many rows there is room for in a window that is high enough. */
constexpr int shown_rows = 14;
/** The width of the search in a window that is wide enough, in letters. */
constexpr int shown_letters = 110;
/** Between the search and the edges of the window, in pixels. */
constexpr int margin = 8;
/** What rows have above and below their texts together, in pixels. */
constexpr int row_padding = 6;
/** What cells have to the left and right of their texts together, in pixels. */
constexpr int cell_padding = 16;

/** Draws what cannot be run gray, and texts less strongly than what an entry is called. */
class EntryDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, row_padding);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const bool enabled = index.data(SearchModel::EnabledRole).toBool();
        const auto set = [&palette = option->palette](QPalette::ColorRole role, const QBrush& brush) {
            for (const auto group : {QPalette::Active, QPalette::Inactive})
                palette.setBrush(group, role, brush);
        };
        // All of them, so that the chosen one can be read as well.
        for (const auto role : {QPalette::Text, QPalette::Highlight, QPalette::HighlightedText}) {
            if (!enabled)
                set(role, option->palette.brush(QPalette::Disabled, role));
        }
        if (enabled && index.column() != SearchModel::TextColumn)
            set(QPalette::Text, option->palette.brush(QPalette::Active, QPalette::PlaceholderText));
        if (index.column() == SearchModel::KeyColumn)
            option->displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
    }
};

int widest(const QSet<QString>& texts, const QFontMetrics& metrics)
{
    int width = 0;
    for (const QString& text : texts)
        width = std::max(width, metrics.horizontalAdvance(text));
    return width;
}

} // namespace

CommandSearch::CommandSearch(QMainWindow* window, const QStringList& recent)
    : QFrame(window),
      mForm(std::make_unique<Ui::QtCommandSearch>()),
      mModel(new SearchModel(this)),
      mWindow(window),
      mFocus(QApplication::focusWidget())
{
    mForm->setupUi(this);
    setForegroundRole(QPalette::PlaceholderText); // the outline, which must be seen on dark windows, too
    mForm->list->setModel(mModel);
    mForm->list->setItemDelegate(new EntryDelegate(mForm->list));
    QHeaderView* header = mForm->list->header();
    header->setMinimumSectionSize(0);
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionResizeMode(SearchModel::TextColumn, QHeaderView::Stretch);
    mModel->set_recent(recent);
    mForm->field->installEventFilter(this);
    window->installEventFilter(this);
    connect(mForm->field, &QLineEdit::textChanged, this, [this](const QString& words) {
        mModel->set_query(words);
        choose_row(0);
    });
    connect(mForm->list, &QTreeView::clicked, this, &CommandSearch::run_choice);
    connect(mForm->list->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &CommandSearch::show_choice);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        // None has it while another program is in front.
        if (now && now != this && !isAncestorOf(now))
            hide();
    });
}

CommandSearch::~CommandSearch() = default;

void CommandSearch::set_entries(const QList<SearchEntry>& entries)
{
    const QModelIndex current = mForm->list->currentIndex();
    const QString chosen = current.isValid() ? search_id(mModel->entry(current.row())) : QString();
    measure(entries);
    share_width();
    mModel->set_entries(entries);
    choose_row(std::max(0, mModel->row_of(chosen)));
}

void CommandSearch::activate()
{
    place();
    show();
    raise();
    mWindow->activateWindow();
    mForm->field->setFocus(Qt::ShortcutFocusReason);
    mForm->field->selectAll();
}

bool CommandSearch::eventFilter(QObject* object, QEvent* event)
{
    if (object == mForm->field && event->type() == QEvent::KeyPress)
        return handle_key(static_cast<QKeyEvent*>(event));
    if (object == mWindow && event->type() == QEvent::Resize)
        place();
    return false;
}

/** Whether the key is one that the field must not get. */
bool CommandSearch::handle_key(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(mForm->list, event);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        run_choice();
        return true;
    case Qt::Key_Escape:
        leave();
        return true;
    default:
        return false;
    }
}

/** Chooses the entry in @p row; none if there is no such row. */
void CommandSearch::choose_row(int row)
{
    mForm->list->setCurrentIndex(mModel->index(row, SearchModel::TextColumn));
    show_choice();
}

void CommandSearch::show_choice()
{
    const QModelIndex current = mForm->list->currentIndex();
    QString hint = tr("Nothing found.");
    if (current.isValid()) {
        const SearchEntry& entry = mModel->entry(current.row());
        hint = entry.refusal.isEmpty() ? entry.tip : entry.refusal;
    }
    mForm->hint->setText(mForm->hint->fontMetrics().elidedText(hint.simplified(), Qt::ElideMiddle,
                                                               mForm->hint->contentsRect().width()));
    // The list does not get the focus, so that a screen reader says what the field tells of itself.
    const QString spoken = current.data(Qt::AccessibleTextRole).toString();
    mForm->field->setAccessibleDescription(hint.isEmpty() || spoken.isEmpty() ? spoken + hint
                                                                              : spoken + u": "_s + hint);
}

/** Measures what each column needs. Of the texts only the longest: to measure thousands takes longer than to
 * show them. */
void CommandSearch::measure(const QList<SearchEntry>& entries)
{
    QString longest;
    QSet<QString> places;
    QSet<QString> keys;
    for (const SearchEntry& entry : entries) {
        if (entry.text.size() > longest.size())
            longest = entry.text;
        places << entry.place;
        keys << entry.key;
    }
    const QFontMetrics metrics = mForm->list->fontMetrics();
    mWidths[SearchModel::TextColumn] = widest({longest}, metrics) + cell_padding;
    mWidths[SearchModel::PlaceColumn] = widest(places, metrics) + cell_padding;
    mWidths[SearchModel::KeyColumn] = widest(keys, metrics) + cell_padding;
}

/** Gives keys and places the room that they need; texts get the rest, at least two fifths if they need so
 * much. */
void CommandSearch::share_width()
{
    const int all =
        mForm->list->contentsRect().width() - mForm->list->verticalScrollBar()->sizeHint().width();
    const int keys = mWidths[SearchModel::KeyColumn];
    const int texts = std::min(mWidths[SearchModel::TextColumn], all * 2 / 5);
    QHeaderView* header = mForm->list->header();
    header->resizeSection(SearchModel::KeyColumn, keys);
    header->resizeSection(SearchModel::PlaceColumn,
                          std::clamp(all - keys - texts, 0, mWidths[SearchModel::PlaceColumn]));
}

/** Below the menu bar, in the middle. */
void CommandSearch::place()
{
    const QWidget* bar = mWindow->menuWidget();
    const int top = bar && bar->isVisible() ? bar->geometry().bottom() + 1 : 0;
    const int row = std::max(mForm->list->sizeHintForRow(0), fontMetrics().height() + row_padding);
    const QSize frame = mForm->list->size() - mForm->list->viewport()->size();
    const int wanted = sizeHint().height() - mForm->list->sizeHint().height() + shown_rows * row +
                       std::max(0, frame.height());
    const QSize size(
        std::min(shown_letters * fontMetrics().averageCharWidth(), mWindow->width() - 2 * margin),
        std::min(wanted, mWindow->height() - top - margin));
    setGeometry(QRect(QPoint((mWindow->width() - size.width()) / 2, top), size));
}

void CommandSearch::run_choice()
{
    const QModelIndex current = mForm->list->currentIndex();
    if (!current.isValid())
        return;
    const SearchEntry entry = mModel->entry(current.row());
    if (!entry.refusal.isEmpty())
        return;
    const Alive alive(this);
    leave();
    if (alive)
        emit chosen(entry);
}

/** Gives the focus back and closes. */
void CommandSearch::leave()
{
    const Alive alive(this);
    if (mFocus && mFocus->isVisible()) {
        mFocus->activateWindow();
        mFocus->setFocus(Qt::OtherFocusReason);
    }
    if (alive)
        hide();
}

void CommandSearch::hideEvent(QHideEvent* event)
{
    QFrame::hideEvent(event);
    // A window that is only minimized comes back.
    if (!event->spontaneous())
        deleteLater();
}

void CommandSearch::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    share_width();
    show_choice();
}

/** The field keeps the focus. */
bool CommandSearch::focusNextPrevChild(bool)
{
    return true;
}

} // namespace fennar
