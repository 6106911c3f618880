// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that has one of each: a menu, a toolbar, a dock, entries in the fixed menus, a text in the
// about dialog, a page in the options dialog, and a command. docs/component-guide.md tells what each step of
// its life guarantees. The folder template has less to take away.

#include "frame/Ostrel.h"
#include "host/ostrelfw/Broker.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelViewMenu.h"
#include "options/OptionsPanel.h"
#include "workbench/sdk/component/component.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QAction>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QFormLayout>
#include <QLabel>
#include <QPointer>
#include <QSettings>
#include <QSpinBox>
#include <QStyle>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/** The component's name, the owner mark of all that it adds. */
constexpr auto owner = "demo";

/** Where the page stands in the options dialog. The group is the workbench's, and so is its name. */
QString options_path()
{
    return QCoreApplication::translate("Workbench", "Plugins") + u"/"_s +
           QCoreApplication::translate("DemoWindow", "Demo");
}

constexpr int largest_number = 100;

/** How far the demo counts when it is not told; what others have written into the settings counts as 1. */
int default_number()
{
    const int number = QSettings().value(u"/demo/number"_s, 1).toInt();
    return number >= 1 && number <= largest_number ? number : 1;
}

/** "demo [NUMBER]" */
void run_command(CommandCall& call)
{
    const int number =
        call.has(1) ? call.integer(1, u"a number from 1 to 100", 1, largest_number) : default_number();
    call.expect_end();
    call.print(u"The demo counts to %1.\n"_s.arg(number));
}

/** The page "Plugins/Demo" of the options dialog. It takes effect on save. */
class DemoOptions : public QWidget
{
    Q_OBJECT

public:
    DemoOptions() : mNumber(new QSpinBox)
    {
        setObjectName(u"DemoOptions"_s);
        mNumber->setObjectName(u"demoDefaultNumber"_s);
        mNumber->setRange(1, largest_number);
        mNumber->setValue(default_number());
        auto* layout = new QFormLayout(this);
        layout->addRow(tr("Count to, unless told"), mNumber);
    }

    void refresh() { mNumber->setValue(default_number()); }
    void save() { QSettings().setValue(u"/demo/number"_s, mNumber->value()); }

private:
    QSpinBox* mNumber;
};

/** All that the component has in the main window. Exists from load() to unload(), if there is a window. */
class DemoWindow : public QObject
{
    Q_OBJECT

public:
    explicit DemoWindow(Ostrel* window);
    ~DemoWindow() override;

private:
    QAction* make_action(const char* name, const QString& text, QStyle::StandardPixmap icon);
    void add_menu();
    void add_toolbar();
    void add_dock();
    void add_options();
    void count();
    void show_dialog();

    Ostrel* mWindow;
    /** The actions are children of this object, and so go with it. */
    QAction* mCount;
    QAction* mReset;
    QAction* mMore;
    QAction* mLess;
    QAction* mDialogAction;
    /** The window owns them; they may go before this object. */
    QPointer<QDockWidget> mDock;
    QPointer<QSpinBox> mNumber;
    QPointer<QDialog> mDialog;
    QPointer<QLabel> mAbout;
    QPointer<DemoOptions> mOptions;
};

DemoWindow::DemoWindow(Ostrel* window)
    : mWindow(window),
      mCount(make_action("demoCount", tr("&Count"), QStyle::SP_DialogApplyButton)),
      mReset(make_action("demoReset", tr("&Reset"), QStyle::SP_BrowserReload)),
      mMore(make_action("demoMore", tr("&More"), QStyle::SP_ArrowUp)),
      mLess(make_action("demoLess", tr("&Less"), QStyle::SP_ArrowDown)),
      mDialogAction(make_action("demoDialog", tr("D&emo Dialog..."), QStyle::SP_TitleBarMenuButton))
{
    setObjectName(u"DemoWindow"_s);
    add_dock();
    add_menu();
    add_toolbar();
    add_options();

    mAbout = new QLabel(tr("Demo component"));
    mAbout->setAlignment(Qt::AlignCenter); // as the dialog's own texts
    mAbout->setObjectName(u"demoAbout"_s);
    mWindow->help_menu()->add_about(mAbout);

    connect(mCount, &QAction::triggered, this, &DemoWindow::count);
    connect(mReset, &QAction::triggered, mNumber, [this] { mNumber->setValue(1); });
    connect(mMore, &QAction::triggered, mNumber, &QSpinBox::stepUp);
    connect(mLess, &QAction::triggered, mNumber, &QSpinBox::stepDown);
    connect(mDialogAction, &QAction::triggered, this, &DemoWindow::show_dialog);
}

// The reverse of the constructor.
DemoWindow::~DemoWindow()
{
    delete mDialog;
    if (mAbout) {
        mWindow->help_menu()->remove_about(mAbout);
        delete mAbout;
    }
    if (mOptions) {
        mWindow->options()->remove_panel(options_path());
        delete mOptions;
    }
    mWindow->remove_toolbar_items(owner);
    mWindow->remove_menu_items(owner);
    if (mDock) {
        // The window forgets the entry in its view menu; the dock itself is for the component to delete.
        mWindow->remove_dock_window(owner);
        mWindow->removeDockWidget(mDock);
        delete mDock;
    }
}

QAction* DemoWindow::make_action(const char* name, const QString& text, QStyle::StandardPixmap icon)
{
    auto* action = new QAction(mWindow->style()->standardIcon(icon), text, this);
    action->setObjectName(QLatin1StringView(name));
    return action;
}

void DemoWindow::add_menu()
{
    std::vector<QAction*> own{mCount, mReset, mMore, mLess};
    mWindow->add_to_menu(tr("&Demo"), own, owner);
    mWindow->view_menu()->add_item(mDialogAction, owner);
    auto* help = make_action("demoHelp", tr("Demo &Help"), QStyle::SP_DialogHelpButton);
    mWindow->help_menu()->add_item(help, owner);
    connect(help, &QAction::triggered, this,
            [] { Broker::command << u"Type \"help demo\" for the command of the demo.\n"_s; });
}

void DemoWindow::add_toolbar()
{
    // A toolbar with three buttons or fewer counts as empty whenever a component leaves.
    std::vector<QAction*> own{mCount, mReset, mMore, mLess};
    mWindow->add_to_toolbar("DemoTools", tr("Demo Tools"), own, owner, Qt::TopToolBarArea);
}

void DemoWindow::add_dock()
{
    mDock = new QDockWidget(tr("Demo"), mWindow);
    mDock->setObjectName(u"DemoDock"_s);
    auto* page = new QWidget(mDock);
    auto* layout = new QVBoxLayout(page);
    mNumber = new QSpinBox(page);
    mNumber->setObjectName(u"demoNumber"_s);
    mNumber->setAccessibleName(tr("Number"));
    mNumber->setRange(1, 100);
    layout->addWidget(mNumber);
    layout->addStretch();
    mDock->setWidget(page);
    mWindow->add_dock_window(mDock, owner, Qt::LeftDockWidgetArea,
                             Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    // It is opened from the View menu.
    mDock->hide();
}

void DemoWindow::add_options()
{
    OptionsPanel* panel = mWindow->options();
    mOptions = new DemoOptions;
    panel->add_panel(options_path(), mOptions);
    connect(panel, &OptionsPanel::refreshSettings, mOptions, &DemoOptions::refresh);
    connect(panel, &OptionsPanel::saveSettings, mOptions, &DemoOptions::save);
}

void DemoWindow::count()
{
    Fennar::instance().interpreter().run(u"demo %1"_s.arg(mNumber->value()));
}

void DemoWindow::show_dialog()
{
    if (!mDialog) {
        mDialog = new QDialog(mWindow);
        mDialog->setObjectName(u"demoDialog"_s);
        mDialog->setWindowTitle(tr("Demo"));
        mDialog->setAttribute(Qt::WA_DeleteOnClose);
        auto* layout = new QVBoxLayout(mDialog);
        layout->addWidget(new QLabel(tr("This dialog goes with its component."), mDialog));
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, mDialog);
        layout->addWidget(buttons);
        connect(buttons, &QDialogButtonBox::rejected, mDialog.data(), &QDialog::reject);
    }
    mDialog->show();
    mDialog->activateWindow();
}

std::unique_ptr<DemoWindow> demo_window;

void load()
{
    // What the command takes: for the command panel, for completion, and for the usage that "help" prints.
    const CommandParameter number{.name = u"NUMBER"_s,
                                  .kind = CommandParameter::Kind::WholeNumber,
                                  .label = QT_TRANSLATE_NOOP("CommandParameter", "Number"),
                                  .least = 1,
                                  .most = 100,
                                  .example = u"3"_s};
    Fennar::instance().registry().add({
        .name = u"demo"_s,
        .summary = u"Counts."_s,
        .help = u"NUMBER is a whole number from 1 to 100. Without it the number of the options page\n"
                "\"Plugins\", \"Demo\" holds."_s,
        .owner = QString::fromLatin1(owner),
        .run = &run_command,
        .forms = {{.clauses = {optional_value(number)}}},
    });
    if (Ostrel* window = Ostrel::instance())
        demo_window = std::make_unique<DemoWindow>(window);
}

void unload()
{
    demo_window.reset();
    Fennar::instance().registry().remove_owner(QString::fromLatin1(owner));
}

constexpr FennarComponent component{
    FENNAR_COMPONENT_INTERFACE, FENNAR_WORKBENCH_VERSION, owner, "1.0", &load, &unload,
};

} // namespace

FENNAR_EXPORT_COMPONENT(component)

#include "demo.moc"
