// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component by which a test works in the journal editor of a program that it has started.

#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/plain_command.h"

#include <QAbstractButton>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QSaveFile>
#include <QTabWidget>

#include <algorithm>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

JournalEditor* editor()
{
    return Ostrel::instance()->journal_editor();
}

/** The box that is open; one that has been answered may wait for its deletion still. */
QMessageBox* offer()
{
    const auto boxes = Ostrel::instance()->findChildren<QMessageBox*>(u"recoveryOffer"_s);
    const auto open = std::find_if(boxes.begin(), boxes.end(), [](auto* box) { return box->isVisible(); });
    return open == boxes.end() ? nullptr : *open;
}

/** The argument: "x", then the text's bytes in hexadecimal digits. */
QString text_of(CommandCall& call)
{
    return QString::fromUtf8(QByteArray::fromHex(call.words().value(1).text.sliced(1).toLatin1()));
}

void add_journal(CommandCall& call)
{
    editor()->add_document(text_of(call));
}

void open_journal(CommandCall& call)
{
    editor()->open_file(text_of(call));
}

void type(CommandCall& call)
{
    auto* tabs = editor()->findChild<QTabWidget*>(u"mDocTab"_s);
    qobject_cast<QPlainTextEdit*>(tabs->currentWidget())->insertPlainText(text_of(call));
}

/** Makes the pass that is due once in a while come now. */
void keep(CommandCall& call)
{
    for (const auto& name : {u"documentKeeper"_s, u"workKeeper"_s}) {
        auto* keeper = Ostrel::instance()->findChild<QObject*>(name);
        bool done = false;
        if (!keeper || !QMetaObject::invokeMethod(keeper, "keep") ||
            !QMetaObject::invokeMethod(keeper, "finish", Q_RETURN_ARG(bool, done)) || !done)
            throw call.error(0, u"not all was kept"_s);
    }
}

void press_button(CommandCall& call)
{
    QMessageBox* box = offer();
    auto* button = box ? box->findChild<QAbstractButton*>(text_of(call)) : nullptr;
    if (!button)
        throw call.error(1, u"no such button"_s);
    button->click();
}

void save(CommandCall&)
{
    editor()->fileSave();
}

void drop_silently(CommandCall&)
{
    JournalEditor::set_save_prompt(false);
}

/** Writes into a file what is in the editor, and what is on offer. */
void report(CommandCall& call)
{
    const auto* tabs = editor()->findChild<QTabWidget*>(u"mDocTab"_s);
    QJsonArray documents;
    for (int i = 0; i < tabs->count(); ++i) {
        const QTextDocument* document = qobject_cast<QPlainTextEdit*>(tabs->widget(i))->document();
        documents.append(QJsonObject{{u"text"_s, document->toRawText()},
                                     {u"modified"_s, document->isModified()},
                                     {u"label"_s, tabs->tabText(i)}});
    }
    const QMessageBox* box = offer();
    const QJsonObject all{{u"documents"_s, documents},
                          {u"offer"_s, box ? box->text() : QString()},
                          {u"visible"_s, editor()->isVisible()}};
    QSaveFile file(text_of(call));
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(all).toJson()) < 0 || !file.commit())
        throw call.error(1, u"the report cannot be written"_s);
}

} // namespace

void fennar::load_component(ComponentContext& context)
{
    const auto add = [&context](const QString& name, void (*run)(CommandCall&)) {
        context.add_command(plain_command(name, {}, run));
    };
    add(u"journal-add"_s, &add_journal);
    add(u"journal-open"_s, &open_journal);
    add(u"journal-type"_s, &type);
    add(u"journal-keep"_s, &keep);
    add(u"journal-press"_s, &press_button);
    add(u"journal-save"_s, &save);
    add(u"journal-no-prompt"_s, &drop_silently);
    add(u"journal-report"_s, &report);
}
