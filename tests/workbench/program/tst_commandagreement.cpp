// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/random_seed.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/host/navigation/CommandForm.h"
#include "workbench/host/navigation/FormServices.h"
#include "workbench/host/navigation/NavigationRoles.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/check_journal.h"
#include "workbench/sdk/core/commands/complete_command.h"
#include "workbench/sdk/core/commands/numbers.h"

#include <QDir>
#include <QFile>
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

    /** The words behind the command's name; nothing if there is nothing to name. */
    std::optional<QStringList> right_words(const CommandSyntax& form)
    {
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

private:
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
        if (!parameter.choices.isEmpty() && (names.size() < parameter.at_least || chance(20)))
            return QStringList(any(parameter.choices));
        if (names.size() < parameter.at_least)
            return std::nullopt;
        std::shuffle(names.begin(), names.end(), mRandom);
        const int most = std::min(int(names.size()), parameter.repeated ? parameter.at_least + 2 : 1);
        return names.first(number(parameter.repeated ? parameter.at_least : 1, most));
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
            return u"there.jou"_s;
        case Kind::OutputFile:
            return u"new file"_s;
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
        QFile file(u"there.jou"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    void set_up_class() override
    {
        workbench().components().load_all();
        run_line(u"brick 10 name a"_s);
        run_line(u"brick 10 at 5 0 0 name b"_s);
        run_line(u"sphere 4 name c"_s);
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
                    QVERIFY2(runs || !right, qPrintable(line + u": "_s + mMessage));
                    ++lines;
                    wrong += runs ? 0 : 1;
                    check_agrees(*command, *words, line, runs);
                    form_agrees(form, *command, line, runs);
                    if (right)
                        completion_agrees(way, name, *words);
                    if (QTest::currentTestFailed())
                        return;
                }
            }
        }
        QVERIFY2(lines > 800 && wrong > 200, qPrintable(u"%1 lines, %2 wrong"_s.arg(lines).arg(wrong)));
    }

    void what_is_completed_is_right()
    {
        LineMaker maker(random_seed(), mRegistry.entities());
        qsizetype candidates = 0;
        for (const QString& name : mRegistry.names()) {
            for (const CommandSyntax& way : mRegistry.find(name)->forms) {
                for (int i = 0; i < 10; ++i) {
                    const std::optional<QStringList> words = maker.right_words(way);
                    if (!words)
                        break;
                    const qsizetype given = maker.number(0, int(words->size()));
                    const QString line = line_of(name, words->first(given)) + u' ';
                    const LineCompletion completion =
                        complete_command(line, line.size(), mRegistry, mInterpreter.variables());
                    for (const LineCompletion::Candidate& candidate : completion.candidates) {
                        const QString more = line.first(completion.start) + candidate.inserted;
                        is_run(more);
                        QVERIFY2(mColumn == 0 || mColumn > more.size(),
                                 qPrintable(more + u": "_s + mMessage));
                        ++candidates;
                    }
                }
            }
        }
        QVERIFY2(candidates > 1000, qPrintable(QString::number(candidates)));
    }

private:
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
        // What it says beyond its declaration is looked at by the check, too, but not run here.
        if (command.name == u"parameter")
            return;
        const QList<JournalFault> faults = check_journal(line, mRegistry, mInterpreter.variables());
        const QString told = faults.isEmpty() ? u"nothing"_s : faults.first().message;
        if (runs) {
            QVERIFY2(faults.isEmpty(), qPrintable(line + u": "_s + told));
            return;
        }
        // What number a thing will have, and whether it is there still, the check cannot know.
        const bool is_number = std::any_of(words.begin(), words.end(), [](const QString& word) {
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
        auto* const item = new QStandardItem(line);
        item->setData(line, NavigationRole::Command);
        model.appendRow(item);
        form.set_entry(item->index());
        const QString made = form.findChild<QLineEdit*>(u"commandLine"_s)->text();
        const bool has_fields = form.findChild<QLineEdit*>(u"commandLine"_s)->isReadOnly();
        const bool applies = form.findChild<QPushButton*>(u"applyButton"_s)->isEnabled();
        if (reads && !applies && !line.contains(u"there.jou"))
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
