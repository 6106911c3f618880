// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/MenuSections.h"
#include "support/TestCase.h"
#include "support/random_seed.h"

#include <QAction>
#include <QMenu>
#include <QRandomGenerator>
#include <QSet>
#include <QTest>
#include <QToolBar>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

enum class Kind { Menu, Toolbar, Nothing };

using Name = std::optional<QByteArray>;

const char* data_or_null(const Name& name)
{
    return name ? name->constData() : nullptr;
}

/** The list with its widget, and the actions that it may meet. */
struct List
{
    explicit List(Kind kind_of_widget) : kind(kind_of_widget)
    {
        if (kind == Kind::Menu)
            list.set_menu(&menu, nullptr);
        else if (kind == Kind::Toolbar)
            list.set_toolbar(&toolbar);
    }

    QAction* make_action()
    {
        auto action = std::make_unique<QAction>();
        // One that has the address of a dead one could not be told from it.
        while (numbers.contains(action.get())) {
            twins.push_back(std::move(action));
            action = std::make_unique<QAction>();
        }
        actions.push_back(std::move(action));
        numbers.append(actions.back().get());
        return actions.back().get();
    }

    bool is_live(const QAction* action) const
    {
        return std::any_of(actions.begin(), actions.end(),
                           [&](const auto& live) { return live.get() == action; });
    }

    const Kind kind;
    QMenu menu;
    QToolBar toolbar;
    QWidget& widget = kind == Kind::Toolbar ? static_cast<QWidget&>(toolbar) : menu;
    std::vector<std::unique_ptr<QAction>> actions;
    std::vector<std::unique_ptr<QAction>> twins;
    QList<const QAction*> numbers; // by which messages name them, the dead too
    MenuSections list{u"list"_s};
};

// --- What there is to see of a list, at one moment

struct Row
{
    const QAction* action = nullptr;    // null for a separator
    const QAction* separator = nullptr; // null on a toolbar, which does not tell which entry one belongs to

    bool operator==(const Row&) const = default;
};

struct Entry
{
    QString owner;
    Row row;

    bool is_action() const { return row.action; }
    bool operator==(const Entry&) const = default;
};

using Rows = QList<Row>;
using Entries = QList<Entry>;

struct Section
{
    QString name;
    Entries entries;

    bool operator==(const Section&) const = default;
};

struct State
{
    explicit State(const List& real)
    {
        for (const MenuSection* section : real.list.sections) {
            sections.append({section->name, {}});
            for (const MenuEntry* entry : section->entries)
                sections.last().entries.append({entry->owner, {entry->action, entry->separator}});
        }
        for (const QAction* row : real.widget.actions()) {
            const bool nameless = row->isSeparator() && real.kind == Kind::Toolbar;
            rows.append(row->isSeparator() ? Row{nullptr, nameless ? nullptr : row} : Row{row, nullptr});
        }
    }

    /** All entries, or those of some sections, as if there were no sections. */
    Entries entries(qsizetype first = 0, qsizetype count = -1) const
    {
        Entries all;
        for (const Section& section : sections.sliced(first, count < 0 ? sections.size() - first : count))
            all += section.entries;
        return all;
    }

    QStringList names() const
    {
        QStringList all;
        for (const Section& section : sections)
            all.append(section.name);
        return all;
    }

    bool operator==(const State&) const = default;

    QList<Section> sections;
    Rows rows; // what the widget shows
};

QString text(const State& state, const List& real)
{
    const auto name = [&](const Row& row) {
        return row.action ? QString::number(real.numbers.indexOf(row.action) + 1) : u"---"_s;
    };
    QStringList words;
    for (const Section& section : state.sections) {
        words << section.name + u':';
        for (const Entry& entry : section.entries)
            words << name(entry.row) + u'/' + entry.owner;
    }
    words << u"| shown:"_s;
    for (const Row& row : state.rows)
        words << name(row);
    return words.join(u' ');
}

// --- The rules. Each function says what is wrong with an outcome; nothing is if it returns an empty string.

qsizetype separators_in(const Entries& entries)
{
    return std::count_if(entries.begin(), entries.end(),
                         [](const Entry& entry) { return !entry.is_action(); });
}

/** What holds whatever has been done. */
QString wrong_at_any_time(const State& state, const List& real)
{
    const QStringList names = state.names();
    if (QSet<QString>(names.begin(), names.end()).size() != names.size())
        return u"two sections of one name"_s;

    for (const Entry& entry : state.entries()) {
        const bool remembered = !entry.is_action() && real.kind == Kind::Menu;
        if (bool(entry.row.separator) != remembered)
            return u"a separator is remembered, or is not"_s;
        if (remembered && (!entry.row.separator->isSeparator() || state.rows.count(entry.row) != 1))
            return u"the separator of an entry is not in the menu"_s;
    }
    // Entries own their separators: those that are gone are not left behind in the widget, hidden.
    qsizetype owned = 0;
    for (const QAction* action : real.widget.findChildren<QAction*>(Qt::FindDirectChildrenOnly))
        owned += action->isSeparator() ? 1 : 0;
    return owned == separators_in(state.entries()) ? QString() : u"%1 separators owned"_s.arg(owned);
}

bool ends_in_action(const Entries& entries)
{
    return !entries.isEmpty() && entries.constLast().is_action();
}

QStringList owners(const Entries& entries)
{
    QStringList all;
    for (const Entry& entry : entries)
        all.append(entry.owner);
    return all;
}

/** Entries as actions with gaps around them, one gap more than there are actions. A gap holds separators. */
struct Gaps
{
    explicit Gaps(const Entries& entries)
    {
        for (const Entry& entry : entries) {
            if (entry.is_action()) {
                actions.append(entry);
                gaps.emplaceBack();
            } else {
                gaps.last().append(entry);
            }
        }
    }

    Entries actions;
    QList<Entries> gaps{Entries()};
};

const QString between_sections = u"ot_section_separator"_s;

/**
 * What has become of entries that were asked for behind others: separators that stand side by side are one,
 * the first; none leads the whole or follows another one; and a section that begins with an action behind one
 * is parted from it.
 */
QString wrong_behind(const Entries& in_front, const Entries& asked, const Entries& found, bool begins_section)
{
    const Gaps wanted(asked);
    const Gaps is(found);
    if (is.actions != wanted.actions)
        return u"the actions"_s;
    for (qsizetype i = 0; i < is.gaps.size(); ++i) {
        QStringList expected = owners(wanted.gaps.at(i));
        if (i == 0 && !ends_in_action(in_front))
            expected.clear();
        else if (i == 0 && expected.isEmpty() && begins_section && !asked.isEmpty())
            expected = {between_sections};
        if (owners(is.gaps.at(i)) != expected.mid(0, 1))
            return u"the separators in gap %1"_s.arg(i);
    }
    return {};
}

/** The rows that entries are shown as: those of dead actions are not, and one that is there twice is so once.
 */
Rows shown(const Entries& entries, const List& real)
{
    Rows rows;
    for (const Entry& entry : entries) {
        if (entry.is_action())
            rows.removeAll(entry.row);
        if (!entry.is_action() || real.is_live(entry.row.action))
            rows.append(entry.row);
    }
    return rows;
}

Rows without(Rows rows, const Entries& entries)
{
    // A separator of a toolbar is not told from another one, and stays.
    for (const Entry& entry : entries)
        if (entry.row != Row())
            rows.removeAll(entry.row);
    return rows;
}

/** Where the section stands that an operation means; behind all if it is not there. */
qsizetype place_of(const Name& section, const State& state)
{
    if (!section)
        return state.sections.isEmpty() ? 0 : state.sections.size() - 1;
    const qsizetype place = state.names().indexOf(QString::fromUtf8(*section));
    return place < 0 ? state.sections.size() : place;
}

Section new_section(const Name& name)
{
    return {name ? QString::fromUtf8(*name) : u"list_section"_s, {}};
}

QString wrong_if_changed(const State& before, const State& after)
{
    return after == before ? QString() : u"something has changed"_s;
}

QString wrong_after_finding(const State& before, const State& after, const Name& section, int position)
{
    if (place_of(section, before) < before.sections.size())
        return wrong_if_changed(before, after);

    const qsizetype at =
        position >= 0 && position < before.sections.size() ? position : before.sections.size();
    State expected = before;
    expected.sections.insert(at, new_section(section));
    return after == expected ? QString() : u"not just a new section"_s;
}

QString wrong_with_counts(const State& state, qsizetype place, int run, int total)
{
    // Those of a new section cover the whole list, wherever it is put.
    const Entries counted = state.entries(0, std::min(place + 1, state.sections.size()));
    if (total != counted.size())
        return u"the count of entries"_s;
    const auto separator =
        std::find_if(counted.rbegin(), counted.rend(), [](const Entry& entry) { return !entry.is_action(); });
    return run == separator - counted.rbegin() ? QString() : u"the count of actions behind a separator"_s;
}

QString wrong_after_adding(const State& before, const State& after, const List& real,
                           const std::vector<QAction*>& wanted, const Name& component, const Name& section)
{
    State start = before;
    const qsizetype place = place_of(section, before);
    if (place == before.sections.size())
        start.sections.append(new_section(section));
    if (!component || wanted.empty() || real.kind == Kind::Nothing)
        return after == start ? QString() : u"not just the section"_s;

    if (after.names() != start.names())
        return u"the sections"_s;
    if (after.sections.first(place) != start.sections.first(place))
        return u"an earlier section"_s;

    const Entries& was = start.sections.at(place).entries;
    const Entries& is = after.sections.at(place).entries;
    if (is.size() < was.size() || is.first(was.size()) != was)
        return u"what was in the section already"_s;
    const Entries added = is.sliced(was.size());
    Entries asked;
    for (const QAction* action : wanted)
        asked.append({QString::fromUtf8(*component), {action, nullptr}});
    QString wrong = wrong_behind(after.entries(0, place) + was, asked, added, was.isEmpty());
    for (qsizetype i = place + 1; i < after.sections.size() && wrong.isEmpty(); ++i)
        wrong = wrong_behind(after.entries(0, i), start.sections.at(i).entries, after.sections.at(i).entries,
                             true);
    if (!wrong.isEmpty())
        return wrong;

    // What is added, and what stands behind it, is shown behind all else. A toolbar with sections behind
    // shows all of the list anew, and nothing else.
    const bool all_anew = real.kind == Kind::Toolbar && place + 1 < after.sections.size();
    const Entries behind = added + after.entries(place + 1);
    const Rows expected =
        all_anew ? shown(after.entries(), real)
                 : without(without(before.rows, start.entries(place + 1)), behind) + shown(behind, real);
    return after.rows == expected ? QString() : u"what is shown"_s;
}

QString wrong_after_removal(const State& before, const State& after, const List& real, const Name& component)
{
    if (!component || real.kind == Kind::Nothing)
        return wrong_if_changed(before, after);
    if (after.names() != before.names())
        return u"the sections"_s;

    // What others own stays where it is, but for separators that would then lead the whole.
    const QString owner = QString::fromUtf8(*component);
    const auto others = [&](Entries entries) {
        entries.removeIf([&](const Entry& entry) { return entry.owner == owner; });
        return entries;
    };
    const Entries left = after.entries();
    if (!left.isEmpty() && !left.constFirst().is_action())
        return u"a separator leads"_s;
    const auto is_tail = [](const Entries& part, const Entries& whole) {
        return part.size() <= whole.size() && part == whole.last(part.size()) &&
               Gaps(whole.first(whole.size() - part.size())).actions.isEmpty();
    };
    if (!is_tail(left, others(before.entries())))
        return u"what is left"_s;
    for (qsizetype i = 0; i < after.sections.size(); ++i)
        if (!is_tail(after.sections.at(i).entries, others(before.sections.at(i).entries)))
            return u"what is left in section %1"_s.arg(i);

    Entries gone = before.entries();
    gone.removeIf([&](const Entry& entry) { return entry.owner != owner && left.contains(entry); });
    const bool lost_separator = separators_in(before.entries()) > separators_in(left);
    const Rows expected = lost_separator && real.kind == Kind::Toolbar ? Rows() : without(before.rows, gone);
    return after.rows == expected ? QString() : u"what is shown"_s;
}

} // namespace

class TstMenuSectionsProperty : public TestCase
{
    Q_OBJECT

private slots:
    void any_sequence_of_additions_and_removals_follows_the_rules_data();
    void any_sequence_of_additions_and_removals_follows_the_rules();

private:
    int below(qsizetype bound) { return static_cast<int>(mRandom.bounded(bound)); }
    Name section();
    Name component();
    QAction* action_or_separator(List& real);
    QString act(List& real, const State& before, QString& wrong);

    QRandomGenerator mRandom;
};

Name TstMenuSectionsProperty::section()
{
    static const std::array<Name, 8> names{
        Name("a"), Name("b"), Name("c"), Name("d"), Name("A"), Name(""), Name("list_section"), Name()};
    return names.at(static_cast<std::size_t>(below(std::ssize(names))));
}

Name TstMenuSectionsProperty::component()
{
    static const std::array<Name, 8> names{Name("one"),
                                           Name("one"),
                                           Name("two"),
                                           Name("two"),
                                           Name("One"),
                                           Name(""),
                                           Name("ot_section_separator"),
                                           Name()};
    return names.at(static_cast<std::size_t>(below(std::ssize(names))));
}

QAction* TstMenuSectionsProperty::action_or_separator(List& real)
{
    const int choice = below(10);
    if (choice < 4)
        return nullptr;
    // Now and then one that is in the list already.
    if (choice == 4 && !real.actions.empty())
        return real.actions.at(static_cast<std::size_t>(below(std::ssize(real.actions)))).get();
    return real.make_action();
}

// Does something and returns what it was. Sets what is wrong with the outcome, if anything is.
QString TstMenuSectionsProperty::act(List& real, const State& before, QString& wrong)
{
    const Name in = section();
    const Name by = component();
    const int position = below(8) - 2;
    const auto told = [&](const char* what) {
        const auto quoted = [](const Name& name) {
            return name ? u'"' + QString::fromUtf8(*name) + u'"' : u"null"_s;
        };
        return QString::fromUtf8(what) +
               u" section %1, component %2, position %3"_s.arg(quoted(in), quoted(by)).arg(position);
    };
    switch (below(16)) {
    case 0: {
        real.list.add_section(data_or_null(in), position);
        const State after(real);
        wrong = in ? wrong_after_finding(before, after, in, position) : wrong_if_changed(before, after);
        return told("add_section");
    }
    case 1: {
        int run = -1;
        int total = -1;
        const MenuSection* const found = real.list.find_section(data_or_null(in), position, &run, &total);
        const State after(real);
        wrong = wrong_after_finding(before, after, in, position);
        const qsizetype place = place_of(in, before);
        const bool is_new = place == before.sections.size();
        if (wrong.isEmpty())
            wrong = wrong_with_counts(before, place, run, total);
        if (wrong.isEmpty() && found->name != (is_new ? new_section(in) : before.sections.at(place)).name)
            wrong = u"the section found"_s;
        return told("find_section");
    }
    case 2: {
        std::vector<QAction*> out{nullptr};
        real.list.get_items(out, data_or_null(in));
        Entries expected;
        if (const qsizetype place = in ? place_of(in, before) : 0; place < before.sections.size())
            expected = Gaps(before.sections.at(place).entries).actions;
        expected.removeIf([&](const Entry& entry) { return !real.is_live(entry.row.action); });
        expected.prepend({});
        if (!std::equal(out.begin(), out.end(), expected.begin(), expected.end(),
                        [](const QAction* action, const Entry& entry) { return action == entry.row.action; }))
            wrong = u"the actions told"_s;
        return told("get_items");
    }
    case 3:
    case 4:
    case 5:
        real.list.remove_items(data_or_null(by));
        wrong = wrong_after_removal(before, State(real), real, by);
        return told("remove_items");
    case 6:
    case 7: {
        QAction* const action = action_or_separator(real);
        real.list.add_item(action, data_or_null(by), data_or_null(in));
        wrong = wrong_after_adding(before, State(real), real, {action}, by, in);
        return told("add_item");
    }
    case 8: {
        if (real.actions.empty() || below(3) != 0)
            return told("nothing for");
        const auto victim = real.actions.begin() + below(std::ssize(real.actions));
        State expected = before;
        expected.rows.removeAll(Row{victim->get(), nullptr});
        const QString what = u"deletion of %1"_s.arg(real.numbers.indexOf(victim->get()) + 1);
        real.actions.erase(victim);
        wrong = wrong_if_changed(expected, State(real));
        return what;
    }
    case 9: {
        // One that is put into the widget past the list.
        if (real.kind == Kind::Nothing || below(4) != 0)
            return told("nothing for");
        State expected = before;
        expected.rows.append({real.make_action(), nullptr});
        real.widget.addAction(real.actions.back().get());
        wrong = wrong_if_changed(expected, State(real));
        return told("a stranger");
    }
    default: {
        std::vector<QAction*> actions(static_cast<std::size_t>(below(6)));
        for (QAction*& action : actions)
            action = action_or_separator(real);
        real.list.add_items(actions, data_or_null(by), data_or_null(in));
        wrong = wrong_after_adding(before, State(real), real, actions, by, in);
        return told("add_items");
    }
    }
}

void TstMenuSectionsProperty::any_sequence_of_additions_and_removals_follows_the_rules_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("runs");
    QTest::newRow("menu") << int(Kind::Menu) << 1200;
    QTest::newRow("toolbar") << int(Kind::Toolbar) << 600;
    QTest::newRow("without a widget") << int(Kind::Nothing) << 300;
}

void TstMenuSectionsProperty::any_sequence_of_additions_and_removals_follows_the_rules()
{
    QFETCH(const int, kind);
    QFETCH(const int, runs);
    mRandom.seed(random_seed());

    constexpr int steps = 30;
    for (int run = 0; run < runs; ++run) {
        List real(static_cast<Kind>(kind));
        State before(real);
        for (int step = 0; step < steps; ++step) {
            QString wrong;
            const QString done = act(real, before, wrong);
            State after(real);
            if (wrong.isEmpty())
                wrong = wrong_at_any_time(after, real);
            if (!wrong.isEmpty())
                QFAIL(qPrintable(u"%1\nafter %2\nwas %3\nis  %4"_s.arg(wrong, done, text(before, real),
                                                                       text(after, real))));
            before = std::move(after);
        }
        // The buttons that wait for their deletion, and the queue, which would grow over all runs.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::sendPostedEvents();
    }
}

OSTREL_TEST(TstMenuSectionsProperty)

#include "tst_menusections_property.moc"
