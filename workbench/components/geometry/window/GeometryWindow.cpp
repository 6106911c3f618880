// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/window/GeometryWindow.h"

#include "frame/Ostrel.h"
#include "host/ostrelfw/Broker.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/model/ModelSteps.h"
#include "workbench/components/geometry/window/CommandDialog.h"
#include "workbench/components/geometry/window/GeometryDock.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/component/disabled_reason.h"
#include "workbench/sdk/core/commands/CommandSink.h"

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/** What all forms for new solids end with. */
QList<CommandField> with_placing(QList<CommandField> fields, bool with_axis)
{
    fields << CommandField{u"at"_s,    GeometryWindow::tr("Center (X Y Z)"), u"at"_s,
                           u"0 0 0"_s, CommandField::Kind::Numbers,          3,
                           true};
    if (with_axis)
        fields << CommandField{u"along"_s, GeometryWindow::tr("Axis (X Y Z)"), u"along"_s,
                               u"0 0 1"_s, CommandField::Kind::Numbers,        3,
                               true};
    fields << CommandField{u"name"_s, GeometryWindow::tr("Name"), u"name"_s, {}, CommandField::Kind::Names, 1,
                           true};
    return fields;
}

CommandField number_field(const QString& name, const QString& label, const QString& value)
{
    return {name, label, {}, value};
}

CommandField solids_field(const QString& name, const QString& label, const QStringList& solids)
{
    return {name, label, {}, solids.join(u' '), CommandField::Kind::Names, 0};
}

} // namespace

GeometryWindow::GeometryWindow(fennar::ComponentContext& context, const GeometryModel& model)
    : mWindow(context.window()), mDock(new GeometryDock(model, mWindow))
{
    setObjectName(u"GeometryWindow"_s);
    make_solid_actions();
    make_change_actions();
    make_mesh_actions();
    add_dock(context);
    add_menu(context);
    add_edit_menu(context, model.steps());
    context.add_to_toolbar("GeometryTools", tr("Geometry Tools"), mToolActions);
    connect(mDock, &GeometryDock::selection_changed, this, &GeometryWindow::update_actions);
    update_actions();
    context.on_end([this] {
        for (const QPointer<QWidget>& dialog : std::as_const(mDialogs))
            delete dialog;
    });
}

QAction* GeometryWindow::make_action(const char* name, const QString& text, const char* icon)
{
    auto* action = new QAction(text, this);
    action->setObjectName(u"geometry_"_s + QLatin1StringView(name));
    if (icon)
        action->setIcon(QIcon(u":/geometry/images/light/"_s + QLatin1StringView(icon)));
    return action;
}

QAction* GeometryWindow::make_form_action(const char* command, const QString& text, const char* icon,
                                          const std::function<QList<CommandField>()>& fields)
{
    QAction* action = make_action(command, text, icon);
    connect(action, &QAction::triggered, this, [this, command, action, fields] {
        QString title = action->text();
        // Chinese has its mnemonics in parentheses behind the text.
        static const QRegularExpression decoration(u"\\(&.\\)|&|\\.\\.\\."_s);
        title.remove(decoration);
        auto* dialog = new CommandDialog(title, QString::fromLatin1(command), fields(), mWindow);
        mDialogs.removeIf([](const QPointer<QWidget>& closed) { return !closed; });
        mDialogs << dialog;
        dialog->show();
        dialog->activateWindow();
    });
    return action;
}

QAction* GeometryWindow::make_selection_action(const char* command, const QString& text, const char* icon,
                                               int least)
{
    QAction* action = make_action(command, text, icon);
    mSelectionActions.append({action, least});
    fennar::set_disabled_reason(action, least == 1 ? tr("No solid is selected.")
                                                   : tr("Fewer than two solids are selected."));
    connect(action, &QAction::triggered, this, [this, command, least] {
        const QStringList solids = mDock ? mDock->selection() : QStringList();
        if (solids.size() >= least)
            send_command(QString::fromLatin1(command) + u' ' + solids.join(u' '));
    });
    return action;
}

QAction* GeometryWindow::make_plain_action(const char* command, const QString& text)
{
    QAction* action = make_action(command, text);
    connect(action, &QAction::triggered, this, [command] { send_command(QString::fromLatin1(command)); });
    return action;
}

void GeometryWindow::make_solid_actions()
{
    mMenuActions = {
        make_form_action("brick", tr("Bric&k..."), "brick.svg",
                         [] {
                             return with_placing({number_field(u"width"_s, tr("Width"), u"1"_s),
                                                  number_field(u"depth"_s, tr("Depth"), u"1"_s),
                                                  number_field(u"height"_s, tr("Height"), u"1"_s)},
                                                 false);
                         }),
        make_form_action("cylinder", tr("&Cylinder..."), "cylinder.svg",
                         [] {
                             return with_placing({number_field(u"radius"_s, tr("Radius"), u"1"_s),
                                                  number_field(u"height"_s, tr("Height"), u"2"_s)},
                                                 true);
                         }),
        make_form_action(
            "sphere", tr("&Sphere..."), "sphere.svg",
            [] { return with_placing({number_field(u"radius"_s, tr("Radius"), u"1"_s)}, false); }),
        make_form_action("cone", tr("C&one..."), "cone.svg",
                         [] {
                             CommandField top = number_field(u"top"_s, tr("Top radius"), {});
                             top.optional = true;
                             return with_placing({number_field(u"radius"_s, tr("Radius"), u"1"_s),
                                                  number_field(u"height"_s, tr("Height"), u"2"_s), top},
                                                 true);
                         }),
        make_form_action("torus", tr("&Torus..."), "torus.svg",
                         [] {
                             return with_placing(
                                 {number_field(u"radius"_s, tr("Radius"), u"2"_s),
                                  number_field(u"tube"_s, tr("Radius of the tube"), u"0.5"_s)},
                                 true);
                         }),
    };
    mToolActions = mMenuActions;
}

void GeometryWindow::make_change_actions()
{
    const auto selection = [this] { return mDock ? mDock->selection() : QStringList(); };
    QAction* move = make_form_action("move", tr("&Move..."), nullptr, [selection] {
        return QList<CommandField>{
            solids_field(u"solids"_s, tr("Solids"), selection()),
            {u"by"_s, tr("By (X Y Z)"), u"by"_s, u"1 0 0"_s, CommandField::Kind::Numbers, 3}};
    });
    QAction* rotate = make_form_action("rotate", tr("&Rotate..."), nullptr, [selection] {
        return QList<CommandField>{
            solids_field(u"solids"_s, tr("Solids"), selection()),
            {u"by"_s, tr("Degrees"), u"by"_s, u"90"_s},
            {u"about"_s, tr("About (X Y Z)"), u"about"_s, u"0 0 0"_s, CommandField::Kind::Numbers, 3, true},
            {u"along"_s, tr("Axis (X Y Z)"), u"along"_s, u"0 0 1"_s, CommandField::Kind::Numbers, 3, true}};
    });
    QAction* copy = make_form_action("copy", tr("Co&py..."), nullptr, [selection] {
        CommandField solid = solids_field(u"solid"_s, tr("Solid"), selection().mid(0, 1));
        solid.count = 1;
        return QList<CommandField>{
            solid,
            {u"by"_s, tr("By (X Y Z)"), u"by"_s, u"1 0 0"_s, CommandField::Kind::Numbers, 3, true},
            {u"name"_s, tr("Name"), u"name"_s, {}, CommandField::Kind::Names, 1, true}};
    });
    QAction* rename = make_form_action("rename", tr("Re&name..."), nullptr, [selection] {
        CommandField solid = solids_field(u"solid"_s, tr("Solid"), selection().mid(0, 1));
        solid.count = 1;
        return QList<CommandField>{solid, {u"name"_s, tr("New name"), {}, {}, CommandField::Kind::Names}};
    });
    QAction* unite = make_selection_action("unite", tr("&Unite"), "unite.svg", 2);
    QAction* subtract = make_form_action("subtract", tr("Su&btract..."), "subtract.svg", [selection] {
        const QStringList solids = selection();
        return QList<CommandField>{
            solids_field(u"tools"_s, tr("Tools"), solids.mid(1)),
            {u"from"_s, tr("From"), u"from"_s, solids.value(0), CommandField::Kind::Names}};
    });
    QAction* intersect = make_selection_action("intersect", tr("&Intersect"), "intersect.svg", 2);
    QAction* remove = make_selection_action("delete", tr("&Delete"), nullptr, 1);
    for (QAction* action : std::initializer_list<QAction*>{nullptr, move, rotate, copy, rename, nullptr,
                                                           unite, subtract, intersect, nullptr, remove})
        mMenuActions.push_back(action);
    for (QAction* action : {unite, subtract, intersect})
        mToolActions.push_back(action);
    mDockActions = {move, rotate, copy, rename, nullptr, unite, subtract, intersect, nullptr, remove};
}

void GeometryWindow::make_mesh_actions()
{
    QAction* mesh = make_form_action("mesh", tr("M&esh..."), "mesh.svg", [this] {
        CommandField solids = solids_field(u"solids"_s, tr("Solids (all if empty)"),
                                           mDock ? mDock->selection() : QStringList());
        solids.optional = true;
        return QList<CommandField>{solids, {u"size"_s, tr("Size"), u"size"_s, u"0.2"_s}};
    });
    for (QAction* action :
         std::initializer_list<QAction*>{nullptr, make_plain_action("list", tr("&List")), nullptr, mesh,
                                         make_plain_action("statistics", tr("Mesh St&atistics")),
                                         make_plain_action("quality", tr("Mesh &Quality"))})
        mMenuActions.push_back(action);
    mToolActions.push_back(mesh);
}

void GeometryWindow::add_menu(fennar::ComponentContext& context)
{
    context.add_to_menu(tr("&Geometry"), mMenuActions);
    QAction* const help = make_action("help", tr("&Geometry Commands"));
    context.add_to_menu(fennar::FixedMenu::Manuals, {help});
    connect(help, &QAction::triggered, this, [] {
        for (const char* command :
             {"brick", "cylinder",   "sphere",  "cone",     "torus",     "move",   "rotate",
              "copy",  "rename",     "unite",   "subtract", "intersect", "delete", "list",
              "mesh",  "statistics", "quality", "undo",     "redo",      "steps",  "new",
              "open",  "save",       "import",  "export"})
            send_command(u"help "_s + QLatin1StringView(command));
    });
}

void GeometryWindow::add_edit_menu(fennar::ComponentContext& context, const ModelSteps& steps)
{
    QAction* const undo = make_plain_action("undo", tr("&Undo"));
    QAction* const redo = make_plain_action("redo", tr("&Redo"));
    // Fields for text take these keys before the window does.
    fennar::set_disabled_reason(undo, tr("There is nothing to undo."));
    fennar::set_disabled_reason(redo, tr("There is nothing to redo."));
    undo->setShortcut(Qt::CTRL | Qt::Key_Z);
    redo->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
    const auto update = [undo, redo, &steps] {
        undo->setEnabled(steps.can_undo());
        redo->setEnabled(steps.can_redo());
    };
    connect(&steps, &ModelSteps::changed, this, update);
    update();
    // The shell puts the menu of this title behind the file menu.
    context.add_to_menu(Ostrel::tr("&Edit"), {undo, redo});
}

void GeometryWindow::add_dock(fennar::ComponentContext& context)
{
    context.add_dock(mDock, Qt::LeftDockWidgetArea, Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    for (QAction* action : mDockActions) {
        if (action)
            mDock->context_menu()->addAction(action);
        else
            mDock->context_menu()->addSeparator();
    }
}

void GeometryWindow::update_actions()
{
    const qsizetype count = mDock ? mDock->selection().size() : 0;
    for (const auto& [action, least] : std::as_const(mSelectionActions))
        action->setEnabled(count >= least);
}
