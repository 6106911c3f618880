// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that tells what the installed program has found of its files:  probe REPORT [FILE]

#include "frame/Ostrel.h"
#include "host/navigation/NavigationModel.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QMimeDatabase>
#include <QTextStream>
#include <QToolBar>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** Whether something of the icon can be seen. */
bool is_visible(const QIcon& icon)
{
    const QImage image = icon.pixmap(22, 22).toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)))
                return true;
        }
    }
    return false;
}

void write_report(CommandCall& call, const CommandArguments& arguments)
{
    QFile file(arguments.text("REPORT"_L1));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        throw call.error(arguments.word("REPORT"_L1), u"cannot be written"_s);
    QTextStream report(&file);
    Ostrel* window = Ostrel::instance();
    const NavigationModel* navigation = window->navigation_model();
    for (int row = 0; row < navigation->rowCount(); ++row)
        report << "page " << navigation->index(row, 0).data().toString() << '\n';
    report << "window icon " << (is_visible(QApplication::windowIcon()) ? "yes" : "no") << '\n';
    const auto toolbars = window->findChildren<QToolBar*>();
    for (const QToolBar* toolbar : toolbars) {
        const auto actions = toolbar->actions();
        for (const QAction* action : actions) {
            if (!action->isSeparator() && !action->icon().isNull())
                report << "button " << action->text() << (is_visible(action->icon()) ? " yes" : " no")
                       << '\n';
        }
    }
    if (const QString known = arguments.text("FILE"_L1); !known.isEmpty())
        report << "type " << QMimeDatabase().mimeTypeForFile(known).name() << '\n';
}

} // namespace

void fennar::load_component(ComponentContext& context)
{
    const CommandParameter report{.name = u"REPORT"_s, .kind = CommandParameter::Kind::OutputFile};
    const CommandParameter file{.name = u"FILE"_s, .kind = CommandParameter::Kind::InputFile};
    context.add_command({.name = u"probe"_s,
                         .summary = u"Tells what the program has found."_s,
                         .perform = &write_report,
                         .forms = {{.clauses = {required_value(report), optional_value(file)}}}});
}
