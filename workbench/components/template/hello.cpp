// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A small component, meant to be copied: a command, a menu entry and a dock that run it, and a page of
// options. The context takes all of it away again.

#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QCoreApplication>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

struct Hello
{
    Q_DECLARE_TR_FUNCTIONS(Hello)
};

const auto name_key = u"/hello/name"_s;

QString usual_name()
{
    return QSettings().value(name_key, u"world"_s).toString();
}

/** "hello [NAME]" */
void say_hello(CommandCall& call, const CommandArguments& arguments)
{
    const QString name = arguments.has("NAME"_L1) ? arguments.text("NAME"_L1) : usual_name();
    call.print(u"Hello, %1!\n"_s.arg(name));
}

void greet()
{
    Fennar::instance().interpreter().run(u"hello"_s);
}

QWidget* make_dock()
{
    auto* button = new QPushButton(Hello::tr("Greet"));
    QObject::connect(button, &QPushButton::clicked, button, &greet);
    return button;
}

OptionsPage make_options()
{
    auto* page = new QWidget;
    auto* name = new QLineEdit(page);
    (new QFormLayout(page))->addRow(Hello::tr("Name"), name);
    return {page, [name] { name->setText(usual_name()); },
            [name] { QSettings().setValue(name_key, name->text()); }};
}

} // namespace

void fennar::load_component(ComponentContext& context)
{
    // What the command takes: for the command panel, for completion, and for the usage that "help" prints.
    const CommandParameter name{.name = u"NAME"_s,
                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Whom to greet"),
                                .default_value = usual_name()};
    context.add_command({
        .name = u"hello"_s,
        .summary = u"Greets."_s,
        .perform = &say_hello,
        .forms = {{.clauses = {optional_value(name)}}},
    });
    // Without a window these do nothing.
    context.add_menu_entry(Hello::tr("&Hello"), Hello::tr("&Greet the World"), &greet);
    context.add_dock(u"HelloDock"_s, Hello::tr("Hello"), &make_dock, Qt::LeftDockWidgetArea);
    context.add_options_page(QCoreApplication::translate("Workbench", "Plugins") + u'/' + Hello::tr("Hello"),
                             &make_options);
}
