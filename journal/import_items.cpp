// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/import_items.h"

#include "console/ConsoleImporter.h"
#include "frame/Alive.h"
#include "journal/JournalEditor.h"

#include <QAction>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>

namespace {

/** Deletes an item of the import menu, and its owner as soon as Qt cannot be walking over the children of the
 * window. */
void remove_import_item(ConsoleImporter* importer)
{
    // Who hears of that may delete the window, and the importer with it.
    const QPointer<ConsoleImporter> left = importer;
    delete importer->action();
    if (!left)
        return;
    left->setParent(nullptr);
    if (left)
        left->deleteLater();
}

} // namespace

void add_import_item(JournalEditor* editor, ImportItems items, QMenu* menu, const QString& owner,
                     const QString& label, QPlainTextEdit* source)
{
    // Whoever hears of the new item may delete the page.
    const QPointer<QPlainTextEdit> page = source;
    auto* importer = new ConsoleImporter(editor, label);
    items.present.append(importer);
    QObject::connect(importer, &QObject::destroyed, editor, [items, importer] {
        items.present.removeAll(importer);
        items.coming.removeAll(importer);
    });
    importer->set_owner_name(owner);
    importer->set_source(page);
    if (page)
        QObject::connect(page, &QObject::destroyed, importer, [importer] { importer->set_source(nullptr); });
    items.coming.append(importer);
    const Alive alive(editor, importer);
    menu->addAction(importer->action());
    if (!alive)
        return;
    items.coming.removeAll(importer);
    // Whoever hears of it may have removed it already.
    if (!items.present.contains(importer))
        remove_import_item(importer);
}

void remove_import_items_of(const JournalEditor* editor, ImportItems items, const QString& owner)
{
    // Out of the list first: who hears of an item's end may remove others.
    QList<QPointer<ConsoleImporter>> removed;
    items.present.removeIf([&](ConsoleImporter* importer) {
        const bool is_owners = importer->owner_name() == owner;
        if (is_owners && !items.coming.contains(importer))
            removed.append(importer);
        return is_owners;
    });
    const Alive alive(editor);
    for (const QPointer<ConsoleImporter>& importer : std::as_const(removed))
        if (alive && importer)
            remove_import_item(importer);
}
