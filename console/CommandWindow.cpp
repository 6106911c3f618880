// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"

#include "console/CommandWidget.h"
#include "frame/Alive.h"
#include "frame/InUse.h"
#include "host/fennari19/FennarInterface.h"
#include "resources/load_icon.h"

#include <QAction>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTextDocument>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QPushButton* make_mode_button(const char* icon, bool checked, const QString& tool_tip, const QString& name)
{
    auto* button = new QPushButton;
    button->setObjectName(name);
    button->setIcon(load_icon(icon));
    button->setCheckable(true);
    button->setChecked(checked);
    button->setToolTip(tool_tip);
    return button;
}

/**
 * Calls @p act with each page that is a Page, from the first tab to the last.
 *
 * What that calls may take pages out, delete them, and delete the console with all of them: those that have
 * left by then are left out, and so are pages that have come meanwhile.
 */
template <class Page, class Act>
void for_each_page(const QTabWidget* tabs, Act act)
{
    QList<QPointer<QWidget>> pages;
    for (int index = 0; index < tabs->count(); ++index)
        pages << tabs->widget(index);
    const Alive alive(tabs);
    for (const QPointer<QWidget>& known : std::as_const(pages)) {
        if (!alive)
            return;
        if (auto* page = qobject_cast<Page*>(tabs->widget(tabs->indexOf(known))))
            act(page);
    }
}

void show_first_command_page(QTabWidget* tabs)
{
    for (int index = 0; index < tabs->count(); ++index) {
        if (qobject_cast<CommandWidget*>(tabs->widget(index))) {
            tabs->setCurrentIndex(index);
            return;
        }
    }
}

/** The first tab with the text @p title, or -1. */
int index_of_title(const QTabWidget* tabs, const QString& title)
{
    for (int index = 0; index < tabs->count(); ++index) {
        if (tabs->tabText(index) == title)
            return index;
    }
    return -1;
}

/**
 * @p page if it is still in the console, or null.
 *
 * Its owner may have deleted it. A deleted page has left the tabs, and looking it up there compares
 * addresses only.
 */
CommandWidget* if_still_there(const QTabWidget* tabs, CommandWidget* page)
{
    return page ? qobject_cast<CommandWidget*>(tabs->widget(tabs->indexOf(page))) : nullptr;
}

void set_checked_silently(QPushButton* button, bool checked)
{
    const QSignalBlocker blocker(button);
    button->setChecked(checked);
}

} // namespace

CommandWindow::CommandWindow(QWidget* parent) : QWidget(parent)
{
    setObjectName(u"QtCommand"_s);

    mLayout = new QVBoxLayout(this);
    mLayout->setObjectName(u"QtCommandLayout"_s);
    mLayout->setContentsMargins(2, 2, 2, 2);
    mLayout->setSpacing(0);

    mCommandTab = new QTabWidget(this);
    mCommandTab->setObjectName(u"mCommandTab"_s);
    mCommandTab->setFocusPolicy(Qt::ClickFocus);
    mCommandTab->setTabPosition(QTabWidget::South);
    mCommandTab->setTabShape(QTabWidget::Triangular);

    // The tool tips are not translated (docs/surprises.md).
    mFennarButton = make_mode_button("halvane_fennar.svg", true, u"Switch to Fennar command mode (Alt+C)"_s,
                                     u"mFennarButton"_s);
    mPythonButton = make_mode_button("python.svg", false, u"Switch to Python statement mode (Alt+P)"_s,
                                     u"mPythonButton"_s);
    mFennarButton->setAccessibleName(tr("Command Mode"));
    mPythonButton->setAccessibleName(tr("Python Mode"));
    auto* corner = new QWidget;
    auto* corner_layout = new QHBoxLayout(corner);
    corner_layout->setContentsMargins(0, 0, 0, 0);
    corner_layout->addWidget(mFennarButton);
    corner_layout->addWidget(mPythonButton);
    mCommandTab->setCornerWidget(corner, Qt::BottomLeftCorner);
    connect(mFennarButton, &QPushButton::toggled, this, &CommandWindow::fennar_mode_pushed);
    connect(mPythonButton, &QPushButton::toggled, this, &CommandWindow::python_mode_pushed);

    mFennarAction = new QAction(this);
    mFennarAction->setObjectName(u"mFennarAction"_s);
    mFennarAction->setShortcut(Qt::ALT | Qt::Key_C);
    addAction(mFennarAction);
    connect(mFennarAction, &QAction::triggered, mFennarButton, &QPushButton::click);
    mPythonAction = new QAction(this);
    mPythonAction->setObjectName(u"mPythonAction"_s);
    mPythonAction->setShortcut(Qt::ALT | Qt::Key_P);
    addAction(mPythonAction);
    connect(mPythonAction, &QAction::triggered, mPythonButton, &QPushButton::click);

    mWarningIcon = new QIcon(load_icon("warning.svg"));
    mNoIcon = new QIcon;
    mLayout->addWidget(mCommandTab);

    resize(QSize(603, 238).expandedTo(minimumSizeHint()));
    setWindowTitle(tr("Command Line Workspace"));
    connect(mCommandTab, &QTabWidget::currentChanged, this, &CommandWindow::tabPageChanged);
}

CommandWindow::~CommandWindow()
{
    // The pages go while the console still stands, so that one which acts on it as it goes finds it whole.
    // Those that were taken out are children of the stack, too.
    disconnect(mCommandTab, nullptr, this, nullptr);
    const auto* stack = mCommandTab->findChild<QStackedWidget*>(QString(), Qt::FindDirectChildrenOnly);
    while (const QWidget* page = stack->findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        delete page;
    InUse::spare(mFennarButton);
    InUse::spare(mPythonButton);
    delete mWarningIcon;
    delete mNoIcon;
}

void CommandWindow::set_read_only(bool readOnly)
{
    emit readOnlyChanged(readOnly);
}

void CommandWindow::print_prompt(bool useContinue, const char* indent)
{
    const Alive alive(this);
    emit readyForPrompt(useContinue, indent);
    if (alive)
        mPromptPrinted = true;
}

void CommandWindow::print_data(const QString& output)
{
    // A command can print for a long time while the event loop stands still, so each finished line is brought
    // to the screen from here. The end is looked at first: a receiver may change what the reference names.
    const bool line_finished = output.endsWith(u'\n');
    const Alive alive(this);
    emit dataToPrint(output);
    if (!alive || !line_finished)
        return;
    // Before the first prompt the program is still starting, and more than this window waits to be drawn.
    // The rectangle is the one within the parent.
    if (mPromptPrinted)
        repaint(geometry());
    else
        QCoreApplication::sendPostedEvents(nullptr, 0);
}

void CommandWindow::print_command(const QString& command)
{
    emit commandToPrint(command);
}

void CommandWindow::append_command(const QString& command)
{
    CommandWidget* page = if_still_there(mCommandTab, mCurrentCommandWidget);
    if (page && !command.isEmpty())
        page->appendToCommand(command);
}

void CommandWindow::insert_command(const QString& command)
{
    CommandWidget* page = if_still_there(mCommandTab, mCurrentCommandWidget);
    if (page && !command.isEmpty())
        page->insertInCommand(command);
}

void CommandWindow::add_command_tab(const QString& title, QWidget* page)
{
    if (!page)
        return;
    const Alive alive(this, page);
    mCommandTab->addTab(page, title);
    if (!alive)
        return;
    if (auto* text_page = qobject_cast<QPlainTextEdit*>(page))
        text_page->document()->setMaximumBlockCount(mOtherMaxLines);
    CommandWidget* command_page = alive ? command_widget(page) : nullptr;
    if (!command_page)
        return;
    command_page->setFont(mFont);
    // With no limit for command pages, the one for the other pages stays (docs/surprises.md).
    if (alive && mCmdMaxLines != 0)
        command_page->document()->setMaximumBlockCount(mCmdMaxLines);
    if (!alive || mCommandTab->indexOf(page) == -1)
        return;
    // First, so that a page chosen while this one is shown stays chosen.
    mCurrentCommandWidget = command_page;
    mCommandTab->setCurrentWidget(command_page);
}

void CommandWindow::remove_command_tab(QWidget* page)
{
    if (page == mCurrentCommandWidget)
        mCurrentCommandWidget = nullptr;
    mCommandTab->removeTab(mCommandTab->indexOf(page));
}

void CommandWindow::switchTab(QWidget* page)
{
    const int index = mCommandTab->indexOf(page);
    if (index == -1)
        return;
    const Alive alive(this, page);
    mCommandTab->setCurrentIndex(index);
    if (alive && page == mCommandTab->currentWidget())
        page->setFocus(Qt::OtherFocusReason);
}

void CommandWindow::set_tab_warning(QWidget* page)
{
    set_tab_warning(mCommandTab->indexOf(page));
}

void CommandWindow::set_tab_warning(int index)
{
    mCommandTab->setTabIcon(index, *mWarningIcon);
}

void CommandWindow::set_tab_warning(const QString& title)
{
    set_tab_warning(index_of_title(mCommandTab, title));
}

void CommandWindow::clear_tab_warning(QWidget* page)
{
    clear_tab_warning(mCommandTab->indexOf(page));
}

void CommandWindow::clear_tab_warning(int index)
{
    mCommandTab->setTabIcon(index, *mNoIcon);
}

void CommandWindow::clear_tab_warning(const QString& title)
{
    clear_tab_warning(index_of_title(mCommandTab, title));
}

void CommandWindow::set_cmd_max_lines(int lines)
{
    mCmdMaxLines = lines;
    // By the member: what this calls may set another limit, which then is the one for all.
    for_each_page<CommandWidget>(
        mCommandTab, [this](CommandWidget* page) { page->document()->setMaximumBlockCount(mCmdMaxLines); });
}

int CommandWindow::get_cmd_max_lines() const
{
    return mCmdMaxLines;
}

void CommandWindow::set_other_max_lines(int lines)
{
    mOtherMaxLines = lines;
    for_each_page<QPlainTextEdit>(mCommandTab, [this](QPlainTextEdit* page) {
        if (!command_widget(page))
            page->document()->setMaximumBlockCount(mOtherMaxLines);
    });
}

int CommandWindow::get_other_max_lines() const
{
    return mOtherMaxLines;
}

void CommandWindow::set_font(QFont font)
{
    mFont = std::move(font);
    for_each_page<CommandWidget>(mCommandTab, [this](CommandWidget* page) { page->setFont(mFont); });
}

QFont CommandWindow::get_font() const
{
    return mFont;
}

void CommandWindow::set_focus_follows_cursor(bool follows)
{
    mFocusFollowsCursor = follows;
    for_each_page<CommandWidget>(mCommandTab,
                                 [follows](CommandWidget* page) { page->setFocusFollowsCursor(follows); });
}

bool CommandWindow::get_focus_follows_cursor() const
{
    return mFocusFollowsCursor;
}

void CommandWindow::clear_contents()
{
    for_each_page<CommandWidget>(mCommandTab, [](CommandWidget* page) { page->clearToPrompt(); });
}

void CommandWindow::set_focus()
{
    if (CommandWidget* page = if_still_there(mCommandTab, mCurrentCommandWidget))
        page->setFocus(Qt::OtherFocusReason);
}

void CommandWindow::current_command_and_index(QString& command, int& index) const
{
    const CommandWidget* page = if_still_there(mCommandTab, mCurrentCommandWidget);
    command = page ? page->currentCommand() : QString();
    index = page ? page->cursorIndex() : 0;
}

void CommandWindow::set_python_mode(bool python)
{
    if (python == mPythonMode)
        return;
    mPythonMode = python;
    const QString prompt = python ? u">>>"_s : u"Fennar>"_s;
    const Alive alive(this);
    for_each_page<CommandWidget>(mCommandTab, [&](CommandWidget* page) {
        // What follows a change of a prompt may have changed the mode back, on all pages.
        if (mPythonMode == python)
            page->setPrompt(prompt);
    });
    if (!alive || mPythonMode != python)
        return;
    set_checked_silently(mFennarButton, !python);
    set_checked_silently(mPythonButton, python);
}

void CommandWindow::tabPageChanged(int index)
{
    if (index == -1)
        return;
    mCommandTab->setTabIcon(index, *mNoIcon);
    QWidget* page = mCommandTab->currentWidget();
    if (!page)
        return;
    const Alive alive(this, page);
    page->setFocus(Qt::OtherFocusReason);
    // With the focus, another page may have been chosen, or this one taken out.
    if (!alive || page != mCommandTab->currentWidget())
        return;
    if (CommandWidget* command_page = command_widget(page))
        mCurrentCommandWidget = command_page;
}

// A click on the button of the active mode lands in these two as well. It leaves neither button checked until
// the host has changed the mode. Behind them the button goes on with itself.

void CommandWindow::fennar_mode_pushed()
{
    const InUse use(mFennarButton);
    const Alive alive(this);
    show_first_command_page(mCommandTab);
    if (!alive || !FennarInterface::command_is_python_mode() || !alive)
        return;
    set_checked_silently(mPythonButton, false);
    emit commandModeChanged(false);
}

void CommandWindow::python_mode_pushed()
{
    const InUse use(mPythonButton);
    const Alive alive(this);
    show_first_command_page(mCommandTab);
    if (!alive || FennarInterface::command_is_python_mode() || !alive)
        return;
    set_checked_silently(mFennarButton, false);
    emit commandModeChanged(true);
}

CommandWidget* CommandWindow::command_widget(QWidget* w) const
{
    return qobject_cast<CommandWidget*>(w);
}
