// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/failing_calls.h"
#include "sweep.h"
#include "workbench/components/geometry/commands/geometry_commands.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/obj_format/obj_text.h"
#include "workbench/sdk/core/commands/ApplicationServices.h"
#include "workbench/sdk/core/commands/CommandSession.h"
#include "workbench/sdk/core/files/FormatRegistry.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace fennar;
using namespace fennar::geometry;
using namespace fennar::obj_format;
using namespace Qt::StringLiterals;

/** Each call of the system that could fail during an export does: in the program, and in the converter. */
class TstFailingExports : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void exported_file_is_the_old_or_the_new_one_data();
    void exported_file_is_the_old_or_the_new_one();
    void program_tells_of_a_full_disk_data();
    void program_tells_of_a_full_disk();

private:
    QString error(const QString& line)
    {
        mSession->interpreter.run(line);
        return mSession->take_errors();
    }

    std::unique_ptr<QTemporaryDir> mDirectory;
    std::unique_ptr<GeometryModel> mModel;
    std::unique_ptr<CommandSession> mSession;
    ApplicationServices mServices;
};

void TstFailingExports::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    mModel = std::make_unique<GeometryModel>();
    mSession = std::make_unique<CommandSession>();
    QVERIFY(register_geometry_commands(mSession->registry, u"geometry"_s,
                                       {*mModel, mServices, QDir(QStringLiteral(FENNAR_PROGRAMS))}));
    QVERIFY(FormatRegistry::instance().add({u"OBJ"_s, {u"obj"_s}, u"test"_s, &read_obj, &write_obj}));
    mModel->brick({1, 2, 3});
}

void TstFailingExports::tear_down()
{
    FormatRegistry::instance().remove_owner(u"test"_s);
    mSession.reset();
    mModel.reset();
    mDirectory.reset();
}

void TstFailingExports::exported_file_is_the_old_or_the_new_one_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("program");
    QTest::addColumn<bool>("temporary");
    QTest::newRow("target") << u"a.brep"_s << QString() << false;
    QTest::newRow("target, a mesh") << u"a.msh"_s << QString() << false;
    QTest::newRow("target of the converter") << u"a.step"_s << QString() << false;
    QTest::newRow("temporary files") << u"a.step"_s << QString() << true;
    for (const auto& name : {u"a.step"_s, u"a.stl"_s, u"a.vtk"_s, u"a.obj"_s})
        QTest::addRow("converter, %s", qPrintable(name))
            << name << (name.endsWith(u"step") ? u"fennar-solids"_s : u"fennar-converter"_s) << true;
}

void TstFailingExports::exported_file_is_the_old_or_the_new_one()
{
    QFETCH(const QString, name);
    QFETCH(const QString, program);
    QFETCH(const bool, temporary);
    const QString path = mDirectory->filePath(name);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
    file.close();
    if (name.endsWith(".msh"_L1) || name.endsWith(".vtk"_L1)) {
        const QString mesh = mDirectory->filePath(u"mesh.stl"_s);
        QCOMPARE(error(u"export "_s + mesh), QString());
        QCOMPARE(error(u"import "_s + mesh), QString());
    }
    const auto without_time = [](const QByteArray& bytes) {
        static const QRegularExpression time(u"\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d"_s);
        return QString::fromLatin1(bytes).remove(time).toLatin1();
    };
    QCOMPARE(sweep({.file = path,
                    .write = [&] { return error(u"export "_s + path); },
                    .folder = temporary ? QDir::tempPath() : mDirectory->path(),
                    .program = program,
                    .clean = without_time}),
             QString());
}

void TstFailingExports::program_tells_of_a_full_disk_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("told");
    QTest::newRow("save") << u"part.mdl"_s << QByteArray("save part.mdl\n") << 1
                          << u"part.mdl\": No space left on device"_s;
    QTest::newRow("export") << u"part.step"_s << QByteArray("export part.step\n") << 1
                            << u"part.step\" cannot be written"_s;
    QTest::newRow("settings") << u"settings.conf"_s << QByteArray() << 0
                              << u"ERROR: the settings cannot be written in "_s;
}

void TstFailingExports::program_tells_of_a_full_disk()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, command);
    QFETCH(const int, code);
    QFETCH(const QString, told);
    const QByteArray old = "[General]\nold=1\n";
    const auto make = [this](const QString& file, const QByteArray& content) {
        QFile made(mDirectory->filePath(file));
        QVERIFY(made.open(QIODevice::WriteOnly) && made.write(content) == content.size());
    };
    QVERIFY(QDir(mDirectory->path()).mkdir(u"full"_s));
    make(u"full/"_s + name, old);
    make(u"a.jou"_s, (command.isEmpty() ? QByteArray() : "brick 1\n" + command) + "quit\n");
    QStringList arguments{u"--play"_s, mDirectory->filePath(u"a.jou"_s)};
    if (command.isEmpty())
        arguments << u"--settings"_s << name << u"--no-components"_s;
    else
        arguments << u"--batch"_s;
    qputenv("FENNAR_COMPONENT_PATH", TREE_COMPONENTS);
    const QString full = QFileInfo(mDirectory->filePath(u"full"_s)).canonicalFilePath();
    QProcess process;
    process.setWorkingDirectory(full);
    const QString counted = mDirectory->filePath(u"count"_s);
    begin_failing_in("fennar", {.folder = full.toStdString(), .number = 1, .lasting = true},
                     counted.toStdString());
    process.start(QStringLiteral(FENNAR), arguments);
    end_failing_in();
    QVERIFY(process.waitForFinished());
    const QString errors = QString::fromUtf8(process.readAllStandardError());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), code);
    QVERIFY2(errors.contains(told), qPrintable(errors));
    QFile left(full + u'/' + name);
    QVERIFY(left.open(QIODevice::ReadOnly));
    QCOMPARE(left.readAll(), old);
}

OSTREL_TEST(TstFailingExports)
#include "tst_failing_exports.moc"
