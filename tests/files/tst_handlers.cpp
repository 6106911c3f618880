// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/ImportExportHandler.h"
#include "files/OpenSaveHandler.h"
#include "support/TestCase.h"
#include "support/virtual_slots.h"

#include <QTest>

#include <type_traits>

using namespace Qt::StringLiterals;

static_assert(std::is_abstract_v<OpenSaveHandler> && std::has_virtual_destructor_v<OpenSaveHandler>);
static_assert(!std::is_base_of_v<QObject, OpenSaveHandler>);
static_assert(sizeof(OpenSaveHandler) == sizeof(void*)); // no data

static_assert(std::is_abstract_v<ImportExportHandler> && std::has_virtual_destructor_v<ImportExportHandler>);
static_assert(!std::is_base_of_v<QObject, ImportExportHandler>);
static_assert(sizeof(ImportExportHandler) == sizeof(void*) + 2 * sizeof(QString));

namespace {

class Plain : public ImportExportHandler
{
public:
    using ImportExportHandler::ImportExportHandler;
    void execute(const QString&, const QString&) override {}
};

} // namespace

/** The two faces that components implement for the file menu. */
class TstHandlers : public TestCase
{
    Q_OBJECT

private slots:
    void virtual_functions_keep_their_order();
    void members_keep_their_order();
    void handler_starts_without_filters();
    void handler_copies_both_texts();
};

void TstHandlers::virtual_functions_keep_their_order()
{
    QCOMPARE(slots_of(&OpenSaveHandler::get_filters, &OpenSaveHandler::get_save_location,
                      &OpenSaveHandler::is_modified, &OpenSaveHandler::set_modified,
                      &OpenSaveHandler::new_file, &OpenSaveHandler::open_file,
                      &OpenSaveHandler::import_recent, &OpenSaveHandler::save_file,
                      &OpenSaveHandler::save_file_as, &OpenSaveHandler::set_directory),
             slots_from(behind_destructor, 10));
    QCOMPARE(slots_of(&ImportExportHandler::execute), slots_from(behind_destructor, 1));
}

void TstHandlers::members_keep_their_order()
{
    const Plain handler(u"mesher"_s);
    const auto offset = [&handler](const QString& member) {
        return reinterpret_cast<const char*>(&member) - reinterpret_cast<const char*>(&handler);
    };
    QCOMPARE(offset(handler.mFilters), std::ptrdiff_t(sizeof(void*)));
    QCOMPARE(offset(handler.mComponent), std::ptrdiff_t(sizeof(void*) + sizeof(QString)));
}

void TstHandlers::handler_starts_without_filters()
{
    const Plain handler(u"mesher"_s);
    QCOMPARE(handler.mComponent, u"mesher"_s);
    QCOMPARE(handler.mFilters, QString());
}

void TstHandlers::handler_copies_both_texts()
{
    Plain first(u"mesher"_s);
    first.mFilters = u"Meshes (*.msh)"_s;
    const Plain copy(first);
    QCOMPARE(copy.mFilters, u"Meshes (*.msh)"_s);
    QCOMPARE(copy.mComponent, u"mesher"_s);
    Plain other(u"other"_s);
    other.mFilters = u"Steps (*.stp)"_s;
    other = first;
    QCOMPARE(other.mFilters, u"Meshes (*.msh)"_s);
    QCOMPARE(other.mComponent, u"mesher"_s);
}

OSTREL_TEST(TstHandlers)
#include "tst_handlers.moc"
