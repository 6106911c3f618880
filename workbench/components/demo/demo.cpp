// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that has one of each: a menu, a toolbar, a dock, entries in the fixed menus, a text in the
// about dialog, a page in the options dialog, a dialog, and a command. All of it is removed by the context
// that it was added through; see docs/component-guide.md. The folder template has less.

#include "frame/Ostrel.h"
#include "host/ostrelfw/Broker.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
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

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

constexpr int largest_number = 100;

/** How far the demo counts when it is not told; what others have written into the settings counts as 1. */
int default_number()
{
    const int number = QSettings().value(u"/demo/number"_s, 1).toInt();
    return number >= 1 && number <= largest_number ? number : 1;
}

/** "demo [NUMBER]" */
void count(CommandCall& call, const CommandArguments& arguments)
{
    const int number = arguments.has("NUMBER"_L1) ? arguments.integer("NUMBER"_L1) : default_number();
    call.print(u"The demo counts to %1.\n"_s.arg(number));
}

/** All that the component has in the main window. Exists from the load to the end, if there is a window. */
class DemoWindow : public QObject
{
    Q_OBJECT

public:
    DemoWindow(ComponentContext& context, Ostrel* window);

private:
    QAction* make_action(const char* name, const QString& text, QStyle::StandardPixmap icon,
                         const ComponentContext::Step& run);
    QWidget* make_dock_content();
    OptionsPage make_options() const;
    void show_dialog();

    ComponentContext& mContext;
    Ostrel* mWindow;
    /** The user may close it. */
    QPointer<QDialog> mDialog;
    /** Deleted with its dock. */
    QPointer<QSpinBox> mNumber;
};

DemoWindow::DemoWindow(ComponentContext& context, Ostrel* window) : mContext(context), mWindow(window)
{
    // Opened from the View menu.
    context
        .add_dock(
            u"DemoDock"_s, tr("Demo"), [this] { return make_dock_content(); }, Qt::LeftDockWidgetArea,
            Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea)
        ->hide();

    const std::vector<QAction*> actions = {
        make_action("demoCount", tr("&Count"), QStyle::SP_DialogApplyButton,
                    [this] { Fennar::instance().interpreter().run(u"demo %1"_s.arg(mNumber->value())); }),
        make_action("demoReset", tr("&Reset"), QStyle::SP_BrowserReload, [this] { mNumber->setValue(1); }),
        make_action("demoMore", tr("&More"), QStyle::SP_ArrowUp, [this] { mNumber->stepUp(); }),
        make_action("demoLess", tr("&Less"), QStyle::SP_ArrowDown, [this] { mNumber->stepDown(); }),
    };
    context.add_to_menu(tr("&Demo"), actions);
    context.add_to_toolbar("DemoTools", tr("Demo Tools"), actions);
    context.add_to_menu(FixedMenu::View,
                        {make_action("demoDialog", tr("D&emo Dialog..."), QStyle::SP_TitleBarMenuButton,
                                     [this] { show_dialog(); })});
    context.add_to_menu(FixedMenu::Help,
                        {make_action("demoHelp", tr("Demo &Help"), QStyle::SP_DialogHelpButton, [] {
                            Broker::command << u"Type \"help demo\" for the command of the demo.\n"_s;
                        })});
    // The group is the workbench's, and so is its name.
    context.add_options_page(QCoreApplication::translate("Workbench", "Plugins") + u'/' + tr("Demo"),
                             [this] { return make_options(); });
    context.add_about_text(tr("Demo component"))->setObjectName(u"demoAbout"_s);
    context.on_end([this] { delete mDialog; });
}

QAction* DemoWindow::make_action(const char* name, const QString& text, QStyle::StandardPixmap icon,
                                 const ComponentContext::Step& run)
{
    QAction* action = mContext.make_action(text, run);
    action->setObjectName(QLatin1StringView(name));
    action->setIcon(mWindow->style()->standardIcon(icon));
    return action;
}

QWidget* DemoWindow::make_dock_content()
{
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    mNumber = new QSpinBox(page);
    mNumber->setObjectName(u"demoNumber"_s);
    mNumber->setAccessibleName(tr("Number"));
    mNumber->setRange(1, largest_number);
    layout->addWidget(mNumber);
    layout->addStretch();
    return page;
}

OptionsPage DemoWindow::make_options() const
{
    auto* page = new QWidget;
    page->setObjectName(u"DemoOptions"_s);
    auto* number = new QSpinBox(page);
    number->setObjectName(u"demoDefaultNumber"_s);
    number->setRange(1, largest_number);
    auto* layout = new QFormLayout(page);
    layout->addRow(tr("Count to, unless told"), number);
    return {page, [number] { number->setValue(default_number()); },
            [number] { QSettings().setValue(u"/demo/number"_s, number->value()); }};
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

} // namespace

void fennar::load_component(ComponentContext& context)
{
    // What the command takes: for the command panel, for completion, and for the usage that "help" prints.
    const CommandParameter number{.name = u"NUMBER"_s,
                                  .kind = CommandParameter::Kind::WholeNumber,
                                  .what = u"how far"_s,
                                  .label = QT_TRANSLATE_NOOP("CommandParameter", "Number"),
                                  .least = 1,
                                  .most = largest_number,
                                  .example = u"3"_s};
    context.add_command({
        .name = u"demo"_s,
        .summary = u"Counts."_s,
        .help = u"NUMBER is a whole number from 1 to 100. Without it the number of the options page\n"
                "\"Plugins\", \"Demo\" holds."_s,
        .perform = &count,
        .forms = {{.clauses = {optional_value(number)}}},
    });
    if (Ostrel* window = context.window())
        context.make<DemoWindow>(context, window);
}

#include "demo.moc"
