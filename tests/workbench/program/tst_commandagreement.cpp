// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/random_seed.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/host/navigation/CommandForm.h"
#include "workbench/host/navigation/FormServices.h"
#include "workbench/host/navigation/NavigationEntries.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/check_journal.h"
#include "workbench/sdk/core/commands/complete_command.h"
#include "workbench/sdk/core/commands/numbers.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <random>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

using Kind = CommandParameter::Kind;

/** Makes lines of declarations: right ones, and ones that mostly are wrong. */
class LineMaker
{
public:
    LineMaker(unsigned seed, const CommandEntities& entities) : mRandom(seed), mEntities(entities) {}

    int number(int least, int most) { return least + int(mRandom() % unsigned(most - least + 1)); }
    bool chance(int percent) { return number(1, 100) <= percent; }
    template <typename T>
    T any(const QList<T>& list)
    {
        return list[number(0, int(list.size()) - 1)];
    }

    /** The words behind the command's name, each of them right; nothing if there is nothing to name. */
    std::optional<QStringList> right_words(const CommandSyntax& form)
    {
        mNamed.clear();
        QList<QStringList> clauses;
        // Those that may come in any order, as they follow each other in the declaration, have one number.
        QList<int> groups;
        int group = 0;
        bool last_is_given = true;
        for (const CommandClause& clause : form.clauses) {
            const bool place_tells = clause.keyword.isEmpty();
            const bool given = !clause.optional || (chance(60) && (!place_tells || last_is_given));
            if (place_tells) {
                last_is_given = given;
                ++group;
            }
            if (!given)
                continue;
            const std::optional<QStringList> words = clause_words(clause);
            if (!words && !clause.optional)
                return std::nullopt;
            if (!words)
                continue;
            clauses << *words;
            groups << (place_tells ? -group : group);
        }
        for (qsizetype i = 1; i < clauses.size(); ++i) {
            if (groups[i] == groups[i - 1] && chance(50))
                clauses.swapItemsAt(i, i - 1);
        }
        QStringList words;
        for (const QStringList& clause : std::as_const(clauses))
            words << clause;
        return words;
    }

    /** The same words, of which one or two are gone, moved, repeated or replaced. */
    QStringList changed(QStringList words, const QStringList& others)
    {
        for (int i = number(1, 2); i > 0; --i) {
            const int size = int(words.size());
            const int at = number(0, size);
            switch (number(0, 3)) {
            case 0:
                if (at < size)
                    words.removeAt(at);
                break;
            case 1:
                if (size > 0)
                    words.insert(at, any(words));
                break;
            case 2:
                words.insert(at, any(others));
                break;
            default:
                if (at < size)
                    words[at] = any(others);
            }
        }
        return words;
    }

    /** The words of a clause, none of them wrong; nothing if there is nothing to name. */
    std::optional<QStringList> clause_words(const CommandClause& clause)
    {
        QStringList words = clause.keyword.isEmpty() ? QStringList() : QStringList(clause.keyword);
        for (const CommandParameter& parameter : clause.parameters) {
            const std::optional<QStringList> values = parameter_words(parameter);
            if (!values)
                return std::nullopt;
            words << *values;
        }
        return words;
    }

private:
    std::optional<QStringList> parameter_words(const CommandParameter& parameter)
    {
        if (parameter.kind == Kind::Entity)
            return entity_words(parameter);
        const int count = parameter.repeated ? number(parameter.at_least, parameter.at_least + 2) : 1;
        QStringList words;
        for (int i = 0; i < count; ++i)
            words << word(parameter);
        return words;
    }

    std::optional<QStringList> entity_words(const CommandParameter& parameter)
    {
        QStringList names = mEntities.names(parameter.entity);
        if (parameter.distinct)
            names.removeIf([this](const QString& name) { return mNamed.contains(name); });
        if (!parameter.choices.isEmpty() && (names.size() < parameter.at_least || chance(20)))
            return QStringList(any(parameter.choices));
        if (names.size() < parameter.at_least)
            return std::nullopt;
        std::shuffle(names.begin(), names.end(), mRandom);
        const int most = std::min(int(names.size()), parameter.repeated ? parameter.at_least + 2 : 1);
        names = names.first(number(parameter.repeated ? parameter.at_least : 1, most));
        mNamed << names;
        return names;
    }

    QString word(const CommandParameter& parameter)
    {
        switch (parameter.kind) {
        case Kind::Number:
        case Kind::WholeNumber:
            return number_word(parameter);
        case Kind::Choice:
            return any(parameter.choices);
        case Kind::NewName:
            return u"new%1"_s.arg(++mNames);
        case Kind::Variable:
            return u"radius"_s;
        case Kind::InputFile:
            return QFile::exists(parameter.example) ? parameter.example : u"there.jou"_s;
        case Kind::OutputFile:
            return parameter.example.isEmpty() || chance(30) ? u"new file"_s : parameter.example;
        default:
            return parameter.example.isEmpty() ? u"anything"_s : parameter.example;
        }
    }

    QString number_word(const CommandParameter& parameter)
    {
        const bool whole = parameter.kind == Kind::WholeNumber;
        const double least = std::max(parameter.least, -1000.0);
        const double most = std::max(least, std::min(parameter.most, 1000.0));
        if (chance(10))
            return QString::number(whole ? std::ceil(least) : least, 'g', 17);
        // The ends may be no whole numbers, and those in between are rounded.
        const double value = least + (most - least) * number(1, 999) / 1000;
        return whole ? QString::number(
                           qint64(std::clamp(std::round(value), std::ceil(least), std::floor(most))))
                     : QString::number(value, 'g', 17);
    }

    std::mt19937 mRandom;
    const CommandEntities& mEntities;
    int mNames = 0;
    /** What the line has named by now. */
    QStringList mNamed;
};

} // namespace

/**
 * Form, completion, check and run of all commands, held against each other: lines at random of what the
 * commands declare. The commands have their declarations, and do nothing.
 */
class TstCommandAgreement : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench&) override
    {
        qputenv("FENNAR_COMPONENT_PATH", TREE_COMPONENTS);
        mOldDirectory = QDir::currentPath();
        QVERIFY(QDir::setCurrent(mDirectory.path()));
        for (const QString& name : {u"there.jou"_s, u"there.py"_s, u"part.stl"_s}) {
            QFile file(name);
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
    }
    void set_up_class() override
    {
        workbench().components().load_all();
        make_solids(3);
        run_line(u"set radius 5"_s);
        mInterpreter.variables().set(u"radius"_s, u"5"_s);
        const CommandRegistry& all = Fennar::instance().registry();
        for (const QString& kind : all.entities().kinds()) {
            // Those that the registry offers itself stay.
            if (kind != command_entity())
                mRegistry.entities().offer(
                    kind, u"test"_s, [kind, &all] { return all.entities().names(kind); },
                    [kind, &all](const QString& word) { return all.entities().find(kind, word); });
        }
        for (const QString& name : all.names()) {
            Command command = *all.find(name);
            command.perform = [](CommandCall&, const CommandArguments&) {};
            mRegistry.add(command);
        }
        mServices = form_services();
        FormServices services = mServices;
        services.registry = &mRegistry;
        set_form_services(services);
    }
    void tear_down_class() override { set_form_services(mServices); }
    void after_workbench() override { QDir::setCurrent(mOldDirectory); }

private slots:
    void all_agree_on_each_line()
    {
        LineMaker maker(random_seed(), mRegistry.entities());
        QWidget parent;
        CommandForm form(&parent);
        int wrong = 0;
        int limits = 0;
        int lines = 0;
        for (const QString& name : mRegistry.names()) {
            const auto command = mRegistry.find(name);
            for (const CommandSyntax& way : command->forms) {
                for (int i = 0; i < 20; ++i) {
                    std::optional<QStringList> words = maker.right_words(way);
                    if (!words)
                        break;
                    const bool right = i % 2 == 0;
                    if (!right)
                        words = maker.changed(*words, others(way));
                    const QString line = line_of(name, *words);
                    const bool runs = is_run(line);
                    // Each value of it is, but they need not go together.
                    QVERIFY2(runs || !right || way.verify, qPrintable(line + u": "_s + mMessage));
                    ++lines;
                    wrong += runs ? 0 : 1;
                    limits += runs || !right ? 0 : 1;
                    check_agrees(*command, *words, line, runs);
                    form_agrees(form, *command, line, runs);
                    if (right && runs)
                        completion_agrees(way, name, *words);
                    if (QTest::currentTestFailed())
                        return;
                }
            }
        }
        QVERIFY2(lines > 800 && wrong > 200 && limits > 5,
                 qPrintable(
                     u"%1 lines, %2 wrong, %3 of them by their limits"_s.arg(lines).arg(wrong).arg(limits)));
    }

    /** What is left to the run of a command is what only its work can tell, which has no column. */
    void what_all_take_fails_by_its_work_only()
    {
        LineMaker maker(random_seed(), mRegistry.entities());
        QWidget parent;
        CommandForm form(&parent);
        CommandInterpreter& real = Fennar::instance().interpreter();
        int run = 0;
        int limits = 0;
        for (const int solids : {0, 1, 3}) {
            make_solids(solids);
            for (const QString& name : quick_commands()) {
                const auto command = mRegistry.find(name);
                for (int i = 0; i < 15; ++i) {
                    const CommandSyntax& way = maker.any(command->forms);
                    const std::optional<QStringList> words = maker.right_words(way);
                    if (!words)
                        continue;
                    const QString line = line_of(name, *words);
                    const bool taken = is_run(line);
                    check_agrees(*command, *words, line, taken);
                    form_agrees(form, *command, line, taken);
                    if (QTest::currentTestFailed())
                        return;
                    limits += taken ? 0 : 1;
                    if (!taken)
                        continue;
                    ++run;
                    const CommandInterpreter::Outcome outcome = real.call(line);
                    QVERIFY2(!outcome.failure || outcome.failure->column == 0,
                             qPrintable(line + u": "_s + outcome.failure.value_or(CommandFailure()).message));
                    if (!outcome.failure && command->changes_model)
                        real.call(u"undo"_s);
                }
            }
        }
        make_solids(3);
        QVERIFY2(run > 400 && limits > 40, qPrintable(u"%1 run, %2 do not"_s.arg(run).arg(limits)));
    }

    void limits_are_told_by_all_data()
    {
        QTest::addColumn<int>("solids");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("message");
        const auto row = [](int solids, const char* line, const QString& message) {
            QTest::newRow(line) << solids << QString::fromLatin1(line) << message;
        };
        row(3, "torus 2 2", u"expected a radius of the tube (less than 2), found \"2\""_s);
        row(3, "cylinder 1 1 along 0 1e-320 0", u"a direction must not be 0 0 0"_s);
        row(0, "delete all", u"there is no solid"_s);
        row(1, "unite all", u"at least 2 are needed, and \"all\" stands for 1"_s);
        row(0, "mesh size 5", u"there is no solid"_s);
        row(3, "subtract b a from a", u"\"a\" was named already"_s);
        row(3, "import there.jou", u"the ending of the file tells no format"_s);
        row(3, "export part", u"the ending of the file tells no format"_s);
        row(3, "export part.msh a",
            u"expected the end of the line (MSH files hold the last mesh), found \"a\""_s);
        row(3, "export part.step mesh",
            u"expected the end of the line (STEP files hold solids), found \"mesh\""_s);
        row(3, "export part.step size 5",
            u"expected the end of the line (STEP files hold solids), found \"size\""_s);
        row(3, "picture part.xyz", u"the ending of the file tells no format of pictures"_s);
        row(3, "play there.jou with radius", u"expected a parameter and its value as NAME=VALUE"_s);
        row(3, "play there.jou 2 with radius=5", u"only a journal that is played from line 1 takes values"_s);
        row(3, "check there.py", u"a Python script cannot be checked"_s);
        row(3, "parameter x number 2 min 3 max 1", u"the maximum is less than the minimum"_s);
        row(3, "parameter x whole 2 min 3", u"expected x (a whole number from 3 on), found \"2\""_s);
        row(3, "parameter x choice fine of coarse", u"expected \"coarse\", found \"fine\""_s);
        row(3, "set radus", u"expected a variable that is set, found \"radus\"; did you mean \"radius\"?"_s);
    }

    void limits_are_told_by_all()
    {
        QFETCH(const int, solids);
        QFETCH(const QString, line);
        QFETCH(const QString, message);
        make_solids(solids);
        const CommandInterpreter::Outcome outcome = Fennar::instance().interpreter().call(line);
        QVERIFY(outcome.failure && outcome.failure->column > 0);
        QVERIFY2(outcome.failure->message.startsWith(message), qPrintable(outcome.failure->message));
        const QList<JournalFault> faults = check_journal(line, mRegistry, mInterpreter.variables());
        QVERIFY(!faults.isEmpty() && faults.first().message.endsWith(outcome.failure->message));
        QWidget parent;
        CommandForm form(&parent);
        QStandardItemModel model;
        show_line(form, model, line);
        QVERIFY(form.findChild<QLineEdit*>(u"commandLine"_s)->isReadOnly());
        QVERIFY(!form.findChild<QPushButton*>(u"applyButton"_s)->isEnabled());
        QVERIFY(!form.findChild<QLabel*>(u"commandMessage"_s)->text().isEmpty());
        make_solids(3);
    }

    void limits_are_kept_by_completion_data()
    {
        QTest::addColumn<int>("solids");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("candidates");
        const auto row = [](int solids, const char* line, const QStringList& candidates) {
            QTest::newRow(qPrintable(u"%1: %2"_s.arg(solids).arg(QString::fromLatin1(line))))
                << solids << QString::fromLatin1(line) << candidates;
        };
        row(1, "unite ", {u"a"_s});
        row(3, "unite ", {u"a"_s, u"all"_s, u"b"_s, u"c"_s});
        row(3, "subtract b from ", {u"a"_s, u"c"_s});
        row(3, "export part.msh ", {u"as"_s, u"mesh"_s});
        row(3, "export part.step ", {u"a"_s, u"all"_s, u"as"_s, u"b"_s, u"c"_s});
        row(3, "export part.stl ", {u"a"_s, u"all"_s, u"as"_s, u"b"_s, u"c"_s, u"mesh"_s, u"size"_s});
        row(3, "export part.step as STL a ", {u"b"_s, u"c"_s, u"size"_s});
        row(3, "play there.jou 2 ", {});
        row(3, "play there.jou 1 ", {u"with"_s});
        row(3, "parameter x number -5 max 3 ", {u"about"_s, u"min"_s, u"unit"_s});
    }

    void limits_are_kept_by_completion()
    {
        QFETCH(const int, solids);
        QFETCH(const QString, line);
        make_solids(solids);
        QStringList shown;
        for (const LineCompletion::Candidate& candidate :
             complete_command(line, line.size(), mRegistry, mInterpreter.variables()).candidates)
            shown << candidate.shown;
        QTEST(shown, "candidates");
        make_solids(3);
    }

    void what_is_completed_is_right()
    {
        LineMaker maker(random_seed(), mRegistry.entities());
        qsizetype candidates = 0;
        // How many there are is chance: where they were few, once more.
        for (int round = 0; round < 5 && candidates <= 1000; ++round) {
            for (const QString& name : mRegistry.names()) {
                for (const CommandSyntax& way : mRegistry.find(name)->forms) {
                    for (int i = 0; i < 10; ++i) {
                        const std::optional<QStringList> words = maker.right_words(way);
                        if (!words)
                            break;
                        const qsizetype given = maker.number(0, int(words->size()));
                        const QString line = line_of(name, words->first(given)) + u' ';
                        is_run(line);
                        // What does not go together stays wrong.
                        if (mColumn > 0 && mColumn < line.size())
                            continue;
                        const LineCompletion completion =
                            complete_command(line, line.size(), mRegistry, mInterpreter.variables());
                        for (const LineCompletion::Candidate& candidate : completion.candidates) {
                            // Where no file has the right ending, all are offered.
                            if (QFile::exists(candidate.shown))
                                continue;
                            const QString more = line.first(completion.start) + candidate.inserted;
                            is_run(more);
                            QVERIFY2(mColumn == 0 || mColumn > more.size(),
                                     qPrintable(more + u": "_s + mMessage));
                            if (const CommandClause* clause =
                                    clause_of(*mRegistry.find(name), candidate.shown))
                                QVERIFY2(is_taken(maker, *clause, line.first(completion.start)),
                                         qPrintable(more + u": "_s + mMessage));
                            ++candidates;
                        }
                    }
                }
            }
        }
        QVERIFY2(candidates > 1000, qPrintable(QString::number(candidates)));
    }

private:
    /** Those that work for no longer than a moment, and open nothing. */
    static QStringList quick_commands()
    {
        return {u"brick"_s,  u"cylinder"_s, u"sphere"_s, u"cone"_s,     u"torus"_s,     u"move"_s,
                u"rotate"_s, u"copy"_s,     u"rename"_s, u"delete"_s,   u"list"_s,      u"unite"_s,
                u"set"_s,    u"select"_s,   u"check"_s,  u"subtract"_s, u"intersect"_s, u"play"_s};
    }

    /** Makes a model of so many solids. */
    void make_solids(int count)
    {
        run_line(u"new discard"_s);
        for (int i = 0; i < count; ++i)
            run_line(u"brick 10 at %1 0 0 name %2"_s.arg(5 * i).arg(QChar(u'a' + i)));
    }

    /** Shows a line in the form; @p model holds it for as long. */
    static void show_line(CommandForm& form, QStandardItemModel& model, const QString& line)
    {
        auto* const item = new QStandardItem(line);
        item->setData(line, NavigationRole::Command);
        model.appendRow(item);
        form.set_entry(item->index());
    }

    /** The clause with values that has this keyword; null if there is none. */
    static const CommandClause* clause_of(const Command& command, const QString& keyword)
    {
        for (const CommandSyntax& way : command.forms) {
            for (const CommandClause& clause : way.clauses) {
                if (clause.keyword == keyword && !clause.parameters.isEmpty())
                    return &clause;
            }
        }
        return nullptr;
    }

    /** Whether the clause, with some values, can stand behind @p line. */
    bool is_taken(LineMaker& maker, const CommandClause& clause, const QString& line)
    {
        bool is_made = false;
        // Few values may go with the line, as a maximum above a large default.
        for (int i = 0; i < 2000; ++i) {
            const std::optional<QStringList> words = maker.clause_words(clause);
            if (!words)
                continue;
            is_made = true;
            const QString more = line + line_of(words->first(), words->sliced(1));
            if (is_run(more) || mColumn > more.size())
                return true;
        }
        return !is_made;
    }

    static QString line_of(const QString& name, const QStringList& words)
    {
        QStringList quoted{name};
        for (const QString& word : words)
            quoted << quote_word(word);
        return quoted.join(u' ');
    }

    /** Words that are right in many places, and in few. */
    QStringList others(const CommandSyntax& form) const
    {
        QStringList words{u"a"_s, u"b"_s,   u"all"_s,       u"none"_s, QString(), u"0"_s,   u"-1"_s,
                          u"2"_s, u"1e9"_s, u"two words"_s, u"5x"_s,   u"nan"_s,  u"inf"_s, u"there.jou"_s};
        for (const CommandClause& clause : form.clauses) {
            if (!clause.keyword.isEmpty())
                words << clause.keyword;
            for (const CommandParameter& parameter : clause.parameters)
                words << parameter.choices;
        }
        return words;
    }

    /** Whether a line runs. Keeps what was wrong, and at which column. */
    bool is_run(const QString& line)
    {
        const CommandInterpreter::Outcome outcome = mInterpreter.call(line);
        mMessage = outcome.failure ? outcome.failure->message : QString();
        mColumn = outcome.failure ? outcome.failure->column : 0;
        return !outcome.failure;
    }

    void check_agrees(const Command& command, const QStringList& words, const QString& line, bool runs)
    {
        const QList<JournalFault> faults = check_journal(line, mRegistry, mInterpreter.variables());
        const QString told = faults.isEmpty() ? u"nothing"_s : faults.first().message;
        if (runs) {
            QVERIFY2(faults.isEmpty(), qPrintable(line + u": "_s + told));
            return;
        }
        // What number a thing will have, and whether it is there still, the check cannot know.
        const auto by_number = [](const CommandClause& clause) {
            return std::any_of(clause.parameters.begin(), clause.parameters.end(),
                               [](const CommandParameter& p) { return p.kind == Kind::Entity; });
        };
        const auto names = [&by_number](const CommandSyntax& way) {
            return std::any_of(way.clauses.begin(), way.clauses.end(), by_number);
        };
        const bool is_number = std::any_of(command.forms.begin(), command.forms.end(), names) &&
                               std::any_of(words.begin(), words.end(), [](const QString& word) {
                                   return parse_integer(word).value_or(0) > 0;
                               });
        if (!is_number && !mMessage.contains(u" already"_s)) {
            QVERIFY2(!faults.isEmpty(), qPrintable(line + u": "_s + mMessage));
            QVERIFY2(told.endsWith(mMessage), qPrintable(line + u": "_s + mMessage + u"; "_s + told));
        }
    }

    /** What can be applied in the form runs, and the form takes what runs. */
    void form_agrees(CommandForm& form, const Command& command, const QString& line, bool runs)
    {
        // It looks for files that are to be read, as the command itself does.
        const bool reads =
            std::any_of(command.forms.begin(), command.forms.end(), [](const CommandSyntax& way) {
                return std::any_of(way.clauses.begin(), way.clauses.end(), [](const CommandClause& clause) {
                    return std::any_of(clause.parameters.begin(), clause.parameters.end(),
                                       [](const CommandParameter& p) { return p.kind == Kind::InputFile; });
                });
            });
        QStandardItemModel model;
        show_line(form, model, line);
        const QString made = form.findChild<QLineEdit*>(u"commandLine"_s)->text();
        const bool has_fields = form.findChild<QLineEdit*>(u"commandLine"_s)->isReadOnly();
        const bool applies = form.findChild<QPushButton*>(u"applyButton"_s)->isEnabled();
        if (reads && !applies && !line.contains(u"there.jou") && !line.contains(u"part.stl"))
            return;
        if (runs) {
            QVERIFY2(applies, qPrintable(line + u": "_s + made));
            // A field cannot hold an empty text: the line is the user's to edit then.
            QVERIFY2(has_fields || (made == line && line.contains(u"\"\""_s)),
                     qPrintable(line + u": "_s + made));
            QVERIFY2(is_run(made) && made.size() == line.size(), qPrintable(line + u": "_s + made));
        } else if (has_fields && applies) {
            QVERIFY2(is_run(made), qPrintable(line + u": "_s + made + u": "_s + mMessage));
        }
        form.set_entry({});
    }

    /** Each word that is a keyword, a choice or a name is offered in its place. */
    void completion_agrees(const CommandSyntax& way, const QString& name, const QStringList& words)
    {
        QStringList known;
        for (const CommandClause& clause : way.clauses) {
            known << clause.keyword;
            for (const CommandParameter& parameter : clause.parameters)
                known << parameter.choices
                      << (parameter.kind == Kind::Entity ? mRegistry.entities().names(parameter.entity)
                                                         : QStringList());
        }
        known.removeAll(QString());
        for (qsizetype i = 0; i < words.size(); ++i) {
            if (!known.contains(words[i]))
                continue;
            const QString line = line_of(name, words.first(i)) + u' ';
            const LineCompletion completion =
                complete_command(line, line.size(), mRegistry, mInterpreter.variables());
            const auto offers = [&](const LineCompletion::Candidate& candidate) {
                return candidate.inserted == quote_word(words[i]) || candidate.shown == words[i];
            };
            QVERIFY2(std::any_of(completion.candidates.begin(), completion.candidates.end(), offers),
                     qPrintable(line + u'^' + words[i]));
        }
    }

    QTemporaryDir mDirectory;
    QString mOldDirectory;
    CommandRegistry mRegistry;
    CommandInterpreter mInterpreter{mRegistry};
    FormServices mServices;
    QString mMessage;
    qsizetype mColumn = 0;
};

OSTREL_TEST(TstCommandAgreement)
#include "tst_commandagreement.moc"
