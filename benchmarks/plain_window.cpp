// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "plain_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

QIcon icon(const char* name)
{
    return QIcon(u":/ostrelgui/images/light/"_s + QString::fromUtf8(name));
}

QAction* add_action(QWidget* menu, const QString& text, const char* picture = nullptr,
                    const QKeySequence& shortcut = {})
{
    auto* action = new QAction(text, menu);
    if (picture)
        action->setIcon(icon(picture));
    if (!shortcut.isEmpty())
        action->setShortcut(shortcut);
    menu->addAction(action);
    return action;
}

QAction* add_separator(QWidget* menu)
{
    auto* separator = new QAction(menu);
    separator->setSeparator(true);
    menu->addAction(separator);
    return separator;
}

template <class Widget>
void add_rows(QGridLayout* layout, int count)
{
    for (int i = 0; i < count; ++i)
        layout->addWidget(new Widget, layout->rowCount(), 0);
}

void fill_menus(QMainWindow* window)
{
    QMenu* file = window->menuBar()->addMenu(u"&File"_s);
    QList<QAction*> tools{add_action(file, u"&New"_s, "filenew_ot.svg", u"Ctrl+N"_s),
                          add_action(file, u"&Open..."_s, "fileopen_ot.svg", u"Ctrl+O"_s),
                          add_action(file, u"&Save"_s, "filesave_ot.svg", u"Ctrl+S"_s)};
    add_action(file, u"Save &As..."_s);
    add_separator(file);
    file->addMenu(u"&Recent Imports"_s);
    tools << add_action(file, u"&Import..."_s, "Import22.svg")
          << add_action(file, u"&Export..."_s, "Export22.svg");
    for (QAction* action : std::as_const(tools))
        action->setEnabled(false);
    add_separator(file);
    add_action(file, u"Set &Directory"_s);
    add_separator(file);
    add_action(file, u"E&xit"_s);

    QMenu* view = window->menuBar()->addMenu(u"&View"_s);
    QMenu* toolbars = view->addMenu(u"Toolbars"_s);

    QMenu* tool_menu = window->menuBar()->addMenu(u"&Tools"_s);
    tools << add_separator(tool_menu) << add_action(tool_menu, u"&Journal Editor"_s, "script.svg")
          << add_action(tool_menu, u"&Play Journal File"_s, "scriptplay_ot.svg");
    add_separator(tool_menu);
    add_action(tool_menu, u"Plu&gins..."_s);
    add_action(tool_menu, u"&Options..."_s);
    auto* bar = new QToolBar(u"File Tools"_s, window);
    window->addToolBar(bar);
    bar->addActions(tools);
    add_action(bar, u"Play ID-less Fennar Journal File"_s, "scriptplayfennar_ot.svg")->setVisible(false);
    add_action(bar, u"Pause Script"_s, "pause_ot.svg", u"Ctrl+I"_s)->setCheckable(true);
    toolbars->addAction(bar->toggleViewAction());

    add_action(window->menuBar()->addMenu(u"&Help"_s), u"&About"_s);
}

QWidget* make_console()
{
    auto* console = new QWidget;
    auto* layout = new QVBoxLayout(console);
    auto* tabs = new QTabWidget;
    tabs->setTabPosition(QTabWidget::South);
    tabs->setTabShape(QTabWidget::Triangular);
    auto* corner = new QWidget;
    auto* corner_layout = new QHBoxLayout(corner);
    corner_layout->setContentsMargins(0, 0, 0, 0);
    for (const char* picture : {"halvane_fennar.svg", "python.svg"}) {
        auto* button = new QPushButton;
        button->setIcon(icon(picture));
        button->setCheckable(true);
        corner_layout->addWidget(button);
    }
    tabs->setCornerWidget(corner, Qt::BottomLeftCorner);
    layout->addWidget(tabs);
    add_action(console, {}, nullptr, u"Alt+C"_s);
    add_action(console, {}, nullptr, u"Alt+P"_s);
    return console;
}

void add_docks(QMainWindow* window)
{
    const auto add = [window](const QString& title, const char* picture, Qt::DockWidgetArea area,
                              QWidget* content) {
        auto* dock = new QDockWidget(title);
        dock->setObjectName(title);
        dock->toggleViewAction()->setIcon(icon(picture));
        window->addDockWidget(area, dock);
        dock->setWidget(content);
    };
    window->setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    window->setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    add(u"Command Line"_s, "cmdwindow_ot.svg", Qt::BottomDockWidgetArea, make_console());
    add(u"Command Panel"_s, "ctrlpanel_ot.svg", Qt::RightDockWidgetArea, new QWidget);
}

void fill_status_bar(QMainWindow* window)
{
    window->statusBar()->addWidget(new QLabel);
    auto* progress = new QWidget;
    auto* layout = new QHBoxLayout(progress);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QProgressBar);
    auto* cancel = new QToolButton;
    QIcon both = icon("cancel.svg");
    both.addPixmap(icon("dcancel.svg").pixmap(36, 36), QIcon::Disabled);
    cancel->setIcon(both);
    cancel->setEnabled(false);
    layout->addWidget(cancel);
    window->statusBar()->addPermanentWidget(progress);
}

void add_journal_editor(QMainWindow* parent)
{
    auto* editor = new QMainWindow(parent, Qt::Window);
    auto* tabs = new QTabWidget;
    tabs->setTabShape(QTabWidget::Triangular);
    tabs->setTabsClosable(true);
    auto* page = new QPlainTextEdit;
    page->setLineWrapMode(QPlainTextEdit::NoWrap);
    new QShortcut(u"Ctrl+/"_s, page);
    new QShortcut(u"Ctrl+F5"_s, page);
    tabs->addTab(page, u"Untitled"_s);
    editor->setCentralWidget(tabs);

    QMenu* file = editor->menuBar()->addMenu(u"&File"_s);
    QList<QAction*> tools{add_action(file, u"&New"_s, "filenew_ot.svg", u"Ctrl+N"_s),
                          add_action(file, u"&Open..."_s, "fileopen_ot.svg", u"Ctrl+O"_s)};
    file->addMenu(u"&Import"_s);
    add_action(file, u"&Close"_s);
    add_separator(file);
    tools << add_action(file, u"&Save"_s, "filesave_ot.svg", u"Ctrl+S"_s);
    add_action(file, u"Save &As..."_s);
    add_action(file, u"Sa&ve All"_s, nullptr, u"Ctrl+Shift+S"_s);
    add_separator(file);
    add_action(file, u"&Print..."_s, "print_ot.svg", u"Ctrl+P"_s);
    tools << add_separator(file);
    add_action(file, u"E&xit"_s);
    QMenu* edit = editor->menuBar()->addMenu(u"&Edit"_s);
    tools << add_action(edit, u"&Undo"_s, "undo.svg", u"Ctrl+Z"_s)
          << add_action(edit, u"&Redo"_s, "redo_ot.svg", u"Ctrl+Y"_s);
    add_separator(edit);
    tools << add_action(edit, u"&Cut"_s, "cut_ot.svg", u"Ctrl+X"_s)
          << add_action(edit, u"C&opy"_s, "copy_ot.svg", u"Ctrl+C"_s)
          << add_action(edit, u"&Paste"_s, "paste_ot.svg", u"Ctrl+V"_s) << add_separator(edit);
    add_action(edit, u"&Find..."_s, "find_ot.svg", u"Ctrl+F"_s);
    QMenu* tool_menu = editor->menuBar()->addMenu(u"&Tools"_s);
    tools << add_action(tool_menu, u"&Play"_s, "play.svg", u"F5"_s)
          << add_action(tool_menu, u"Translate to Python"_s, "trpython.svg");
    editor->addToolBar(u"Tools"_s)->addActions(tools);
}

void add_dialogs(QMainWindow* parent)
{
    auto* options = new QDialog(parent);
    auto* layout = new QGridLayout(options);
    auto* tree = new QTreeWidget;
    layout->addWidget(tree);
    auto* pages = new QStackedWidget;
    layout->addWidget(pages);
    add_rows<QFrame>(layout, 1);
    add_rows<QLabel>(layout, 1);
    add_rows<QPushButton>(layout, 2);

    auto* look = new QWidget;
    auto* look_layout = new QGridLayout(look);
    auto* families = new QComboBox;
    families->addItems(QFontDatabase::families());
    look_layout->addWidget(families);
    auto* sizes = new QComboBox;
    for (const int size : QFontDatabase::pointSizes(families->currentText()))
        sizes->addItem(QString::number(size));
    look_layout->addWidget(sizes);
    add_rows<QGroupBox>(look_layout, 1);
    add_rows<QLabel>(look_layout, 6);
    add_rows<QListView>(look_layout, 1);
    add_rows<QRadioButton>(look_layout, 4);
    add_rows<QCheckBox>(look_layout, 1);
    auto* general = new QWidget;
    auto* general_layout = new QGridLayout(general);
    add_rows<QLabel>(general_layout, 7);
    add_rows<QCheckBox>(general_layout, 7);
    add_rows<QLineEdit>(general_layout, 1);
    add_rows<QToolButton>(general_layout, 1);
    for (QWidget* page : {look, general}) {
        pages->addWidget(page);
        new QTreeWidgetItem(tree);
    }

    auto* about = new QDialog(parent);
    auto* about_layout = new QGridLayout(about);
    add_rows<QLabel>(about_layout, 4);
    auto* area = new QScrollArea;
    area->setWidget(new QWidget);
    about_layout->addWidget(area);
    add_rows<QPushButton>(about_layout, 1);
}

} // namespace

std::unique_ptr<QMainWindow> plain_window(bool hidden_windows)
{
    auto window = std::make_unique<QMainWindow>();
    window->setIconSize({22, 22});
    auto* central = new QWidget;
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* splitter = new QSplitter;
    auto* black = new QWidget;
    black->setPalette(Qt::black);
    black->setAutoFillBackground(true);
    splitter->addWidget(black);
    layout->addWidget(splitter);
    window->setCentralWidget(central);
    window->resize(1016, 819);
    fill_menus(window.get());
    add_docks(window.get());
    fill_status_bar(window.get());
    new QShortcut(u"Ctrl+L"_s, window.get());
    if (hidden_windows) {
        add_journal_editor(window.get());
        add_dialogs(window.get());
    }
    return window;
}
