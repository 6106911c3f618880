// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/windows/WindowParts.h"

#include "frame/Ostrel.h"
#include "host/navigation/NavigationModel.h"
#include "host/navigation/NavigationResourcesDelay.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/ComponentRecord.h"
#include "host/ostrelfw/Mediator.h"
#include "menus/HelpAboutOstrel.h"
#include "menus/OstrelHelpMenu.h"
#include "workbench/application/component_manager/component_commands.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/editor/EditorLanguage.h"
#include "workbench/application/editor/editor_options.h"
#include "workbench/application/journals/JournalFiles.h"
#include "workbench/application/journals/add_journal_check.h"
#include "workbench/application/search/CommandFinder.h"
#include "workbench/application/settings/panel_options.h"
#include "workbench/application/windows/FileDrops.h"
#include "workbench/application/windows/WindowKeys.h"
#include "workbench/application/windows/undo_parts.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/component/shell_access.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QChildEvent>
#include <QCoreApplication>
#include <QDialog>
#include <QHelpEvent>
#include <QListWidget>
#include <QStyledItemDelegate>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** The items themselves keep their text: the tool finds components by it. */
class VersionDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void update()
    {
        mComponents.clear();
        Broker::instance()->get_components(mComponents);
    }

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override
    {
        const auto row = std::size_t(index.row());
        if (event->type() != QEvent::ToolTip || !index.isValid() || row >= mComponents.size())
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        QToolTip::showText(event->globalPos(), mComponents[row].text3, view);
        return true;
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto row = std::size_t(index.row());
        if (row < mComponents.size() && mComponents[row].name == option->text)
            option->text = u"%1 %2"_s.arg(option->text, mComponents[row].text2).trimmed();
    }

private:
    /** As the tool lists them; the second text is the version, the third tells more. */
    std::vector<ComponentRecord> mComponents;
};

/** Shows the versions of the components behind their names in the plugin tool, as they are when that opens.
 */
class PluginVersions : public QObject
{
public:
    /** @param window  not null; outlives this object. */
    explicit PluginVersions(Ostrel* window) : mWindow(window) { window->installEventFilter(this); }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        QDialog* const tool = plugin_tool(mWindow);
        QListWidget* const list = plugin_list(tool);
        // The tool is made when it is shown for the first time.
        if (list && object == mWindow && event->type() == QEvent::ChildPolished &&
            static_cast<QChildEvent*>(event)->child() == tool) {
            list->setItemDelegate(new VersionDelegate(list));
            tool->installEventFilter(this);
        }
        // Just before it fills its list.
        if (list && object == tool && event->type() == QEvent::Show)
            static_cast<VersionDelegate*>(list->itemDelegate())->update();
        return QObject::eventFilter(object, event);
    }

private:
    Ostrel* const mWindow;
};

/** Fills the about dialog in. */
void describe_product(Ostrel* window)
{
    HelpAboutOstrel* about = window->help_menu()->get_help_about_dialog();
    about->setProductName(u"Fennar"_s);
    about->setProductInfo(QCoreApplication::translate("Workbench", "Version %1, the workbench of Ostrel")
                              .arg(QCoreApplication::applicationVersion()));
    // The dialog takes a path as it stands only if "fennargui" is in it.
    about->setIconPath(u":/fennargui/product.png"_s);
}

/** The shell looks for entries that are shown from now on. Those that are no longer are for the host to find.
 */
void follow_unloaded_components(Ostrel* window)
{
    NavigationModel* model = window->navigation_model();
    QObject::connect(&Fennar::instance().registry().entities(), &CommandEntities::changed, model,
                     [model](const QString& kind) {
                         if (kind != loaded_component)
                             return;
                         NavigationResourcesDelay resources;
                         resources.model = model;
                         resources.recheckResources();
                     });
}

} // namespace

WindowParts::WindowParts(Ostrel* window, ConsoleOwner* console, const Services& services)
    : mContext(std::make_unique<ComponentContext>(u"fennar"_s)),
      mJournalFiles(std::make_unique<JournalFiles>(
          window->journal_editor(),
          [report = services.report](const QString& text) { report(u"ERROR: "_s + text + u'\n'); })),
      mEditorLanguage(
          std::make_unique<EditorLanguage>(window->journal_editor(), Fennar::instance().interpreter())),
      mKeys(std::make_unique<WindowKeys>(window)),
      mDrops(std::make_unique<FileDrops>(window, console, services.run, services.report)),
      mFinder(std::make_unique<CommandFinder>(window, Fennar::instance().registry(),
                                              CommandFinder::Services{services.run, services.write}))
{
    window->set_title(u"Fennar"_s);
    describe_product(window);
    add_journal_check(
        *mContext, Fennar::instance().interpreter(), [](const QString& text) { Broker::command << text; },
        services.report);
    add_undo_parts(*mContext, Fennar::instance().registry().steps());
    mContext->add_options_page(QCoreApplication::translate("QtPanelOptions", "Panel"),
                               [window] { return make_panel_options(window); });
    apply_panel_options(window);
    mContext->add_options_page(QCoreApplication::translate("QtEditorOptions", "Journal Editor"), [this] {
        return make_editor_options([this] { mEditorLanguage->read_settings(); });
    });
    mContext->make<PluginVersions>(window);
    follow_unloaded_components(window);
}

WindowParts::~WindowParts() = default;

void WindowParts::set_busy(bool busy)
{
    mKeys->set_busy(busy);
    mFinder->set_busy(busy);
}

} // namespace fennar
