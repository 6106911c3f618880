// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/leftovers.h"
#include "workbench/components/geometry/commands/geometry_commands.h"
#include "workbench/components/geometry/exchange/model_format.h"
#include "workbench/components/geometry/model/GeometryDocument.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/turn_faces.h"
#include "workbench/sdk/core/commands/ApplicationServices.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/plain_command.h"
#include "workbench/sdk/core/commands/tokenize.h"
#include "workbench/sdk/core/files/UnsavedWorks.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <csignal>
#include <sys/resource.h>

using namespace fennar;
using namespace fennar::geometry;
using namespace Qt::StringLiterals;

namespace {

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("the file could not be written");
}

} // namespace

/** The model as a document, and the commands of a run without a window. */
class TstGeometryDocument : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void model_comes_back_whole();
    void saving_what_was_opened_writes_the_same_bytes();
    void faces_that_are_turned_inside_out_are_mended_data();
    void faces_that_are_turned_inside_out_are_mended();
    void ids_go_on_behind_those_of_the_file();
    void mesh_stays_of_the_model_or_of_an_earlier_one();
    void changed_are_all_solids_of_both_models();
    void new_starts_from_the_beginning();
    void new_asks_unless_changes_are_to_be_dropped();
    void commands_that_change_the_model_make_it_modified_data();
    void commands_that_change_the_model_make_it_modified();
    void file_that_cannot_be_opened_changes_nothing_data();
    void file_that_cannot_be_opened_changes_nothing();
    void save_that_fails_keeps_the_data_and_the_file_data();
    void save_that_fails_keeps_the_data_and_the_file();
    void file_that_may_not_grow_keeps_the_data_and_the_file();
    void recovered_model_is_modified_and_has_no_file();
    void copy_that_is_damaged_changes_nothing();
    void save_needs_a_name_once();
    void names_may_have_any_characters_data();
    void names_may_have_any_characters();
    void relative_name_is_of_the_current_directory();
    void mistakes_are_named_data();
    void mistakes_are_named();
    void taken_command_refuses_all();
    void nothing_is_left_in_the_temporary_folder();

private:
    /** Enters a line and returns what it printed, errors included. */
    QString enter(const QString& line);
    QString path(const QString& name = u"a.mdl"_s) const { return mDirectory->filePath(name); }
    void make_solids();
    /** All that the commands tell of the model. */
    QString description() { return enter(u"list"_s) + enter(u"statistics"_s) + enter(u"quality"_s); }

    std::unique_ptr<QTemporaryDir> mDirectory;
    std::unique_ptr<CommandRegistry> mRegistry;
    std::unique_ptr<CommandInterpreter> mInterpreter;
    std::unique_ptr<GeometryModel> mModel;
    std::unique_ptr<GeometryDocument> mDocument;
    ApplicationServices mServices;
    QList<bool> mDiscarded;
    QString mOutput;
};

void TstGeometryDocument::set_up()
{
    mDiscarded.clear();
    mDirectory = std::make_unique<QTemporaryDir>();
    mModel = std::make_unique<GeometryModel>();
    mDocument = std::make_unique<GeometryDocument>(*mModel);
    mRegistry = std::make_unique<CommandRegistry>();
    mInterpreter = std::make_unique<CommandInterpreter>(*mRegistry);
    mInterpreter->set_output([this](const QString& text) { mOutput += text; });
    mInterpreter->set_error_output([this](const QString& text) { mOutput += text; });
    QVERIFY(register_geometry_commands(*mRegistry, u"geometry"_s,
                                       {*mModel, mServices, QDir(QStringLiteral(FENNAR_PROGRAMS))}));
    QVERIFY(register_document_commands(*mRegistry, u"geometry"_s,
                                       {[this](bool discard) {
                                            mDiscarded << discard;
                                            mDocument->clear();
                                        },
                                        [this](const QString& file) { mDocument->open(file); },
                                        [this](const QString& file) { mDocument->save(file); }}));
}

void TstGeometryDocument::tear_down()
{
    mInterpreter.reset();
    mRegistry.reset();
    mDocument.reset();
    mModel.reset();
}

QString TstGeometryDocument::enter(const QString& line)
{
    mOutput.clear();
    mInterpreter->enter(line);
    return mOutput;
}

void TstGeometryDocument::make_solids()
{
    for (const char* line : {"brick 4 3 2 name plate", "cylinder 0.5 5 at 0.3 0.1 0 along 1 2 3 name drill",
                             "subtract drill from plate", "brick 1 at 9 0 0", "brick 1 at 12 0 0 name far",
                             "unite brick3 far", "sphere 1.1 at 0 9 0", "cone 1 2 0.4 at 0 -9 0 along 0 1 1",
                             "torus 3 0.25 along 1 0 1", "delete cone6"}) {
        const QString answer = enter(QString::fromLatin1(line));
        QVERIFY2(!answer.contains(u"ERROR"_s), qPrintable(answer));
    }
}

void TstGeometryDocument::model_comes_back_whole()
{
    make_solids();
    QVERIFY(enter(u"mesh plate brick3 size 0.8"_s).contains(u"volume elements"_s));
    const QString before = description();
    const QByteArray mesh = mModel->mesh()->msh;
    const QList<int> ids = mModel->ids();
    QVERIFY(mDocument->is_modified());
    QCOMPARE(enter(u"save "_s + path()), QString());
    QVERIFY(!mDocument->is_modified());
    QCOMPARE(mDocument->file(), path());
    QCOMPARE(description(), before);

    QCOMPARE(enter(u"new"_s), QString());
    QCOMPARE(enter(u"list"_s), u"There are no solids.\n"_s);
    QVERIFY(!mModel->mesh());
    QCOMPARE(mDocument->file(), QString());
    QVERIFY(!mDocument->is_modified());

    QCOMPARE(enter(u"open "_s + path()), QString());
    QCOMPARE(mDocument->file(), path());
    QVERIFY(!mDocument->is_modified());
    QCOMPARE(mModel->ids(), ids);
    QCOMPARE(description(), before);
    QCOMPARE(mModel->mesh()->msh, mesh);
    // The shapes are shapes, and not pictures of them.
    QVERIFY(enter(u"subtract sphere5 from plate"_s).contains(u"plate: volume"_s));
    QVERIFY(enter(u"mesh plate size 1"_s).contains(u"volume elements"_s));
}

void TstGeometryDocument::saving_what_was_opened_writes_the_same_bytes()
{
    make_solids();
    mDocument->save(path());
    mDocument->open(path());
    enter(u"list"_s);
    mDocument->save(path(u"b.mdl"_s));
    QVERIFY(content(path()).size() > 10'000);
    QVERIFY(content(path()) == content(path(u"b.mdl"_s)));
    // What has changed since is written anew.
    enter(u"move plate by 1 0 0"_s);
    const QString before = description();
    mDocument->save();
    mDocument->open(path(u"b.mdl"_s));
    QCOMPARE(description(), before);
}

void TstGeometryDocument::faces_that_are_turned_inside_out_are_mended_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<int>("shell");
    QTest::addColumn<int>("turned");
    QTest::addColumn<double>("volume");
    const QStringList hollow{u"brick 10 name a"_s, u"brick 5 name b"_s, u"subtract b from a"_s};
    const QStringList apart{u"brick 10 name a"_s, u"brick 5 at 20 0 0 name b"_s, u"unite a b"_s};
    QTest::newRow("a solid") << QStringList{u"brick 10"_s} << 1 << 6 << 1000.0;
    QTest::newRow("one face") << QStringList{u"brick 10"_s} << 1 << 1 << 1000.0;
    for (const int shell : {0, 1, 2}) {
        QTest::addRow("shell %d of a hollow solid", shell) << hollow << shell << 6 << 875.0;
        QTest::addRow("shell %d of two pieces", shell) << apart << shell << 6 << 1125.0;
    }
}

void TstGeometryDocument::faces_that_are_turned_inside_out_are_mended()
{
    QFETCH(const QStringList, lines);
    QFETCH(const int, shell);
    QFETCH(const int, turned);
    QFETCH(const double, volume);
    for (const QString& line : lines)
        enter(line);
    GeometryContents contents = mModel->contents();
    QCOMPARE(contents.solids.size(), 1);
    QVERIFY(turn_faces(contents.solids[0].brep, shell, turned) >= shell);
    write(path(), write_model(contents).join());
    mDocument->open(path());
    const auto measured = [this] { return mModel->measures(mModel->ids().first()).volume; };
    QVERIFY2(std::abs(measured() - volume) < 1e-6, qPrintable(QString::number(measured())));
    // The mesher reads the shape anew, and so does the next start.
    QVERIFY(enter(u"mesh size 5"_s).contains(u" volume elements"_s));
    mDocument->save();
    QVERIFY(content(path()) != write_model(contents).join());
    mDocument->open(path());
    QVERIFY2(std::abs(measured() - volume) < 1e-6, qPrintable(QString::number(measured())));
}

void TstGeometryDocument::ids_go_on_behind_those_of_the_file()
{
    enter(u"brick 1"_s);
    enter(u"brick 1"_s);
    enter(u"delete brick2"_s);
    mDocument->save(path());
    mDocument->clear();
    mDocument->open(path());
    QVERIFY(enter(u"brick 2"_s).startsWith(u"brick3: "_s));
}

void TstGeometryDocument::mesh_stays_of_the_model_or_of_an_earlier_one()
{
    enter(u"brick 1"_s);
    enter(u"mesh size 0.7"_s);
    mDocument->save(path());
    mDocument->clear();
    enter(u"brick 2"_s);
    mDocument->open(path());
    QCOMPARE(mModel->mesh()->revision, mModel->revision());
    QVERIFY(!enter(u"statistics"_s).contains(u"changed since"_s));
    enter(u"move brick1 by 1 0 0"_s);
    QVERIFY(enter(u"statistics"_s).contains(u"changed since"_s));
    mDocument->save();
    mDocument->clear();
    mDocument->open(path());
    QVERIFY(enter(u"statistics"_s).contains(u"changed since"_s));
    const qint64 revision = mModel->revision();
    mDocument->open(path());
    QVERIFY(mModel->revision() > revision);
}

void TstGeometryDocument::changed_are_all_solids_of_both_models()
{
    enter(u"brick 1"_s);
    mDocument->save(path());
    enter(u"brick 1"_s);
    const QSignalSpy solids(mModel.get(), &GeometryModel::solid_changed);
    const QSignalSpy meshes(mModel.get(), &GeometryModel::mesh_changed);
    mDocument->open(path());
    QCOMPARE(solids.size(), 2);
    QCOMPARE(meshes.size(), 1);
    QCOMPARE(mModel->ids(), QList<int>{1});
}

void TstGeometryDocument::new_starts_from_the_beginning()
{
    enter(u"brick 1"_s);
    enter(u"new"_s);
    QVERIFY(enter(u"brick 1"_s).startsWith(u"brick1: "_s));
}

void TstGeometryDocument::new_asks_unless_changes_are_to_be_dropped()
{
    enter(u"new"_s);
    enter(u"new discard"_s);
    QCOMPARE(mDiscarded, QList<bool>({false, true}));
}

void TstGeometryDocument::commands_that_change_the_model_make_it_modified_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("modified");
    for (const char* line : {"brick 1", "cylinder 1 2", "sphere 1", "cone 1 2", "torus 2 1",
                             "move a by 1 0 0", "rotate a by 5", "copy a", "rename a c", "unite a b",
                             "subtract b from a", "intersect a b", "delete a", "mesh a size 1"})
        QTest::newRow(line) << QString::fromLatin1(line) << true;
    for (const char* line : {"list", "list a", "statistics", "quality", "help list", "brick 0", "nonsense",
                             "rename a a", "mesh a size 1e-5", "echo x"})
        QTest::newRow(line) << QString::fromLatin1(line) << false;
}

void TstGeometryDocument::commands_that_change_the_model_make_it_modified()
{
    QFETCH(const QString, line);
    enter(u"brick 2 name a"_s);
    enter(u"brick 1 at 1 0 0 name b"_s);
    mDocument->save(path());
    QVERIFY(!mDocument->is_modified());
    enter(line);
    QTEST(mDocument->is_modified(), "modified");
}

void TstGeometryDocument::file_that_cannot_be_opened_changes_nothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    GeometryContents nonsense;
    nonsense.last_id = 2;
    nonsense.solids << GeometryContents::Solid{1, u"x"_s, "no shape at all\n"};
    GeometryContents twice = nonsense;
    twice.solids << GeometryContents::Solid{2, u"x"_s, "no shape at all\n"};
    QTest::newRow("empty") << QByteArray() << u"it is empty"_s;
    QTest::newRow("text") << QByteArray("brick 1\n") << u"it does not begin as a model file does"_s;
    QTest::newRow("newer") << QByteArray("fennar model 2\n") << u"it has version 2 of the format"_s;
    QTest::newRow("cut off") << QByteArray("fennar model 1\nlast-id 1\nsolid 1 a 100\nxx")
                             << u"it is cut off at byte 41"_s;
    QTest::newRow("shape that is none")
        << write_model(nonsense).join() << u"the shape of \"x\": the result is no solid"_s;
    QTest::newRow("name twice") << write_model(twice).join() << u"the id 2 or the name \"x\""_s;
}

void TstGeometryDocument::file_that_cannot_be_opened_changes_nothing()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, reason);
    make_solids();
    mDocument->save(path());
    enter(u"brick 1"_s);
    const QString before = description();
    const qint64 revision = mModel->revision();
    const QString bad = path(u"bad.mdl"_s);
    write(bad, bytes);
    const QString answer = enter(u"open "_s + bad);
    const QString begin = u"ERROR: open: the model \"%1\" cannot be opened: "_s.arg(bad) + reason;
    QVERIFY2(answer.contains(begin) && answer.endsWith(u"; nothing has changed\n"_s), qPrintable(answer));
    QCOMPARE(mModel->revision(), revision);
    QCOMPARE(description(), before);
    QCOMPARE(mDocument->file(), path());
    QVERIFY(mDocument->is_modified());
}

void TstGeometryDocument::save_that_fails_keeps_the_data_and_the_file_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("reason");
    QTest::newRow("full device") << u"/dev/full"_s << ENOSPC;
    QTest::newRow("no such directory") << u"gone/a.mdl"_s << ENOENT;
    QTest::newRow("directory") << u"."_s << EISDIR;
}

void TstGeometryDocument::save_that_fails_keeps_the_data_and_the_file()
{
    QFETCH(const QString, name);
    QFETCH(const int, reason);
    enter(u"brick 1"_s);
    mDocument->save(path());
    const QByteArray saved = content(path());
    enter(u"brick 2"_s);
    const QString before = description();
    const QString target = QDir::cleanPath(QDir(mDirectory->path()).absoluteFilePath(name));
    QCOMPARE(enter(u"save "_s + target),
             u"ERROR: save: the model cannot be saved in \"%1\": %2; it stays in memory, unsaved\n"_s.arg(
                 target, qt_error_string(reason)));
    QVERIFY(mDocument->is_modified());
    QCOMPARE(mDocument->file(), path());
    QCOMPARE(description(), before);
    QCOMPARE(content(path()), saved);
    QCOMPARE(enter(u"save"_s), QString());
    QVERIFY(!mDocument->is_modified());
    QVERIFY(content(path()) != saved);
}

void TstGeometryDocument::file_that_may_not_grow_keeps_the_data_and_the_file()
{
    enter(u"brick 1"_s);
    mDocument->save(path());
    const QByteArray saved = content(path());
    enter(u"move brick1 by 1 0 0"_s);
    // To a file that may not grow any more each write fails as on a full disk.
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = {};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    rlimit small = limit;
    small.rlim_cur = rlim_t(saved.size() / 2);
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const QString answer = enter(u"save"_s);
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    std::signal(SIGXFSZ, handler);
    QVERIFY2(answer.startsWith(u"ERROR: save: the model cannot be saved in "_s) &&
                 answer.contains(qt_error_string(EFBIG)),
             qPrintable(answer));
    QVERIFY(mDocument->is_modified());
    QCOMPARE(content(path()), saved);
    QCOMPARE(enter(u"save"_s), QString());
    QVERIFY(content(path()) != saved);
}

void TstGeometryDocument::recovered_model_is_modified_and_has_no_file()
{
    make_solids();
    const QString before = description();
    const QByteArray copy = mDocument->contents().join();
    enter(u"new"_s);
    enter(u"brick 7"_s);
    enter(u"save \"%1\""_s.arg(path(u"other.mdl"_s)));
    mDocument->recover(copy, path());
    QCOMPARE(description(), before);
    QVERIFY(mDocument->is_modified());
    QCOMPARE(mDocument->file(), QString());
    QCOMPARE(mDocument->earlier_file(), path());
    // Once it has a file again, nothing is left of the old one.
    const QSignalSpy settled(&UnsavedWorks::instance(), &UnsavedWorks::settled);
    QCOMPARE(enter(u"save \"%1\""_s.arg(path(u"b.mdl"_s))), QString());
    QVERIFY(!mDocument->is_modified());
    QCOMPARE(mDocument->earlier_file(), QString());
    QCOMPARE(settled.size(), 1);
}

void TstGeometryDocument::copy_that_is_damaged_changes_nothing()
{
    make_solids();
    const QByteArray copy = mDocument->contents().join();
    QCOMPARE(enter(u"save \"%1\""_s.arg(path())), QString());
    const QString before = description();
    QString reason;
    try {
        mDocument->recover(copy.chopped(10), u"/a/part.mdl"_s);
    } catch (const GeometryError& error) {
        reason = error.message();
    }
    QVERIFY2(reason.startsWith("the model of \"/a/part.mdl\" cannot be recovered: "_L1), qPrintable(reason));
    QCOMPARE(description(), before);
    QCOMPARE(mDocument->file(), path());
    QVERIFY(!mDocument->is_modified());
}

void TstGeometryDocument::save_needs_a_name_once()
{
    enter(u"brick 1"_s);
    QCOMPARE(enter(u"save"_s), u"ERROR: save: the model has no file yet; \"save FILE\" gives it one\n"_s);
    QVERIFY(mDocument->is_modified());
    QCOMPARE(enter(u"save "_s + path()), QString());
    QFile::remove(path());
    QCOMPARE(enter(u"save"_s), QString());
    QVERIFY(QFile::exists(path()));
}

void TstGeometryDocument::names_may_have_any_characters_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("odd characters") << u" a;b #c%d&e\"f'g$h\\.mdl"_s;
    QTest::newRow("other letters") << u"модель 模型 é"_s;
    QTest::newRow("line feed") << u"a\nb.mdl"_s;
    QTest::newRow("option") << u"--batch"_s;
}

void TstGeometryDocument::names_may_have_any_characters()
{
    QFETCH(const QString, name);
    enter(u"brick 1"_s);
    QCOMPARE(enter(u"save "_s + quote_word(path(name))), QString());
    QVERIFY(QFile::exists(path(name)));
    enter(u"new"_s);
    QCOMPARE(enter(u"open "_s + quote_word(path(name))), QString());
    QCOMPARE(mModel->ids(), QList<int>{1});
    // An error stays in one line, whatever the name.
    QFile::remove(path(name));
    QCOMPARE(enter(u"open "_s + quote_word(path(name))).count(u'\n'), 1);
}

void TstGeometryDocument::relative_name_is_of_the_current_directory()
{
    const QString before = QDir::currentPath();
    const auto restore = qScopeGuard([&] { QDir::setCurrent(before); });
    QVERIFY(QDir::setCurrent(mDirectory->path()));
    enter(u"save a.mdl"_s);
    QCOMPARE(mDocument->file(), QDir::currentPath() + u"/a.mdl"_s);
    QVERIFY(QFile::exists(path()));
}

void TstGeometryDocument::mistakes_are_named_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    QTest::newRow("open nothing")
        << u"open"_s << u"ERROR: open: column 5: expected the name of a file, found the end of the line\n"_s;
    QTest::newRow("open an empty name")
        << u"open ''"_s << u"ERROR: open: column 6: expected the name of a file, found \"\"\n"_s;
    QTest::newRow("open two files")
        << u"open a b"_s << u"ERROR: open: column 8: expected the end of the line, found \"b\"\n"_s;
    QTest::newRow("open what is not there")
        << u"open /no/such"_s << u"ERROR: open: column 6: there is no file \"/no/such\"\n"_s;
    QTest::newRow("open a directory")
        << u"open /"_s
        << u"ERROR: open: the model \"/\" cannot be opened: it is not a regular file; nothing has changed\n"_s;
    QTest::newRow("open a device")
        << u"open /dev/zero"_s
        << u"ERROR: open: the model \"/dev/zero\" cannot be opened: it is not a regular file; nothing has changed\n"_s;
    QTest::newRow("save in an empty name")
        << u"save ''"_s << u"ERROR: save: column 6: expected the name of a file, found \"\"\n"_s;
    QTest::newRow("new with a word")
        << u"new x"_s
        << u"ERROR: new: column 5: expected \"discard\" or the end of the line, found \"x\"\n"_s;
    QTest::newRow("new with a word too many")
        << u"new discard x"_s << u"ERROR: new: column 13: expected the end of the line, found \"x\"\n"_s;
}

void TstGeometryDocument::mistakes_are_named()
{
    QFETCH(const QString, line);
    QTEST(enter(line), "error");
}

void TstGeometryDocument::taken_command_refuses_all()
{
    CommandRegistry registry;
    registry.add(plain_command(u"save"_s, u"other"_s, [](CommandCall&) {}));
    QVERIFY(!register_document_commands(registry, u"geometry"_s, {}));
    QCOMPARE(registry.names(), QStringList(u"save"_s));
}

void TstGeometryDocument::nothing_is_left_in_the_temporary_folder()
{
    const QStringList before = temporary_files();
    make_solids();
    enter(u"save "_s + path());
    enter(u"open "_s + path());
    enter(u"save /dev/full"_s);
    QCOMPARE(temporary_files(), before);
    QCOMPARE(QDir(mDirectory->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList(u"a.mdl"_s));
}

OSTREL_TEST(TstGeometryDocument)
#include "tst_geometrydocument.moc"
