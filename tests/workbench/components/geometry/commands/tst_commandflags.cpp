// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/geometry/commands/geometry_commands.h"
#include "workbench/components/geometry/model/GeometryDocument.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/sdk/core/commands/ApplicationServices.h"
#include "workbench/sdk/core/commands/CommandSession.h"
#include "workbench/sdk/core/commands/builtin_commands.h"

#include <QDir>
#include <QMap>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <tuple>

using namespace fennar;
using namespace fennar::geometry;
using namespace Qt::StringLiterals;

namespace {

/** A call of each command that does what the command is for, in a model with the solids a, b, c and a mesh.
 */
const QMap<QString, QString>& calls()
{
    static const QMap<QString, QString> lines{
        {u"brick"_s, u"brick 2 at 50 0 0"_s},
        {u"cone"_s, u"cone 2 3 at 50 0 0"_s},
        {u"copy"_s, u"copy a by 50 0 0"_s},
        {u"cylinder"_s, u"cylinder 2 3 at 50 0 0"_s},
        {u"delete"_s, u"delete a"_s},
        {u"export"_s, u"export other.stl a"_s},
        {u"import"_s, u"import part.step"_s},
        {u"intersect"_s, u"intersect a b"_s},
        {u"list"_s, u"list"_s},
        {u"mesh"_s, u"mesh c size 8"_s},
        {u"move"_s, u"move a by 1 2 3"_s},
        {u"new"_s, u"new discard"_s},
        {u"open"_s, u"open part.mdl"_s},
        {u"quality"_s, u"quality"_s},
        {u"redo"_s, u"redo"_s},
        {u"rename"_s, u"rename a d"_s},
        {u"rotate"_s, u"rotate a by 30"_s},
        {u"save"_s, u"save other.mdl"_s},
        {u"sphere"_s, u"sphere 2 at 50 0 0"_s},
        {u"statistics"_s, u"statistics"_s},
        {u"subtract"_s, u"subtract b from a"_s},
        {u"torus"_s, u"torus 10 2 at 50 0 0"_s},
        {u"undo"_s, u"undo"_s},
        {u"unite"_s, u"unite a b"_s},
    };
    return lines;
}

/** All that a user would call a change. */
std::tuple<qint64, QStringList, std::shared_ptr<const Mesh>> state(const GeometryModel& model)
{
    QStringList names;
    for (const int id : model.ids())
        names << model.solid(id)->name;
    return {model.revision(), names, model.mesh()};
}

} // namespace

/** What the commands say of themselves, held against what they do. */
class TstCommandFlags : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void flags_are_what_commands_do();

private:
    void run(const QString& line)
    {
        mSession->take_errors();
        mSession->interpreter.run(line);
        QCOMPARE(mSession->take_errors(), QString());
    }

    QString mOldDirectory;
    QTemporaryDir mDirectory;
    std::unique_ptr<GeometryModel> mModel;
    std::unique_ptr<GeometryDocument> mDocument;
    std::unique_ptr<CommandSession> mSession;
    ApplicationServices mServices;
    /** How often a command has given the application its turn, as one does that waits for a program. */
    int mTurns = 0;
};

void TstCommandFlags::set_up()
{
    mOldDirectory = QDir::currentPath();
    QDir::setCurrent(mDirectory.path());
    mModel = std::make_unique<GeometryModel>();
    mDocument = std::make_unique<GeometryDocument>(*mModel);
    mSession = std::make_unique<CommandSession>();
    mServices.turn = [this] { ++mTurns; };
    CommandRegistry& registry = mSession->registry;
    registry.remove(u"note"_s);
    const DocumentActions actions{[this](bool) { mDocument->clear(); },
                                  [this](const QString& file) { mDocument->open(file); },
                                  [this](const QString& file) { mDocument->save(file); }};
    QVERIFY(register_geometry_commands(registry, u"geometry"_s,
                                       {*mModel, mServices, QDir(QStringLiteral(FENNAR_PROGRAMS))}));
    QVERIFY(register_document_commands(registry, u"geometry"_s, actions));
    register_step_commands(registry, u"fennari19"_s);
}

void TstCommandFlags::tear_down()
{
    mSession.reset();
    mDocument.reset();
    mModel.reset();
    QDir::setCurrent(mOldDirectory);
}

void TstCommandFlags::flags_are_what_commands_do()
{
    const QStringList names = calls().keys();
    QCOMPARE(mSession->registry.names(), names);
    for (const QString& line : {u"brick 10 name a"_s, u"brick 10 at 5 0 0 name b"_s, u"sphere 4 name c"_s,
                                u"export part.step a"_s, u"mesh c size 8"_s, u"save part.mdl"_s})
        run(line);
    for (const QString& name : names) {
        run(u"open part.mdl"_s);
        if (name == u"undo" || name == u"redo")
            run(u"brick 2 at 50 0 0"_s);
        if (name == u"redo")
            run(u"undo"_s);
        const auto before = state(*mModel);
        mTurns = 0;
        run(calls()[name]);
        const std::shared_ptr<const Command> command = mSession->registry.find(name);
        QVERIFY2(command->changes_model == (state(*mModel) != before), qPrintable(name));
        // Those that the kernel does in this process give turns once they have taken a while, which shows in
        // a time only; all else waits for a program, at least for a moment.
        const bool in_kernel = name == u"intersect" || name == u"subtract" || name == u"unite";
        QVERIFY2(in_kernel ? command->long_running : command->long_running == (mTurns > 0), qPrintable(name));
    }
}

OSTREL_TEST(TstCommandFlags)
#include "tst_commandflags.moc"
