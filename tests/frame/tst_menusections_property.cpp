// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/MenuSections.h"
#include "support/TestCase.h"

#include <QAction>
#include <QMenu>
#include <QRandomGenerator>
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

/**
 * The rules of a list on one flat row of items. What the widget shows is a row of numbers: that of an action,
 * or one below 0 for a separator.
 */
struct Model
{
    struct Item
    {
        QByteArray section;
        QByteArray owner;
        int action = 0; // 0 for a separator
        int separator = 0;
    };

    Kind kind = Kind::Menu;
    QList<QByteArray> sections;
    QList<Item> items;
    QList<int> rows;
    QList<int> dead;
    int last_separator = 0;

    void show_action(int action)
    {
        if (dead.contains(action))
            return;
        // A widget holds an action once.
        rows.removeAll(action);
        rows.append(action);
    }

    void show_separator(Item& item)
    {
        item.separator = --last_separator;
        rows.append(item.separator);
    }

    void show(Item& item)
    {
        if (item.action)
            show_action(item.action);
        else
            show_separator(item);
    }

    void hide(const Item& item) { rows.removeAll(item.action ? item.action : item.separator); }

    struct Found
    {
        qsizetype index;
        int run;
        int total;
    };

    Found find_section(const Name& section, int position)
    {
        qsizetype last = section ? sections.indexOf(*section) : sections.size() - 1;
        const qsizetype end = last < 0 ? sections.size() - 1 : last;
        int run = 0;
        int total = 0;
        for (const Item& item : items) {
            if (sections.indexOf(item.section) > end)
                break;
            run = item.action ? run + 1 : 0;
            ++total;
        }
        if (last < 0) {
            last = position >= 0 && position < sections.size() ? position : sections.size();
            sections.insert(last, section ? *section : QByteArray("list_section"));
        }
        return {last, run, total};
    }

    bool is_empty(const QByteArray& section) const
    {
        return std::none_of(items.begin(), items.end(),
                            [&](const Item& item) { return item.section == section; });
    }

    void add_items(const QList<int>& actions, const Name& component, const Name& section)
    {
        const Found target = find_section(section, -1);
        int run = target.run;
        if (!component || kind == Kind::Nothing || actions.isEmpty())
            return;

        QList<Item> before;
        QList<Item> behind;
        for (const Item& item : std::as_const(items))
            (sections.indexOf(item.section) > target.index ? behind : before).append(item);
        const QByteArray name = sections.at(target.index);
        const bool was_empty = is_empty(name);
        const bool is_last = target.index == sections.size() - 1;

        if (!is_last && kind == Kind::Toolbar) {
            rows.clear();
            for (Item& item : before)
                show(item);
        } else if (!is_last) {
            for (const Item& item : std::as_const(behind))
                hide(item);
        }

        items = before;
        const auto append = [&](const QByteArray& in, const QByteArray& owner, int action) {
            items.append({in, owner, action, 0});
            show(items.last());
            run = action ? run + 1 : 0;
        };
        if (run >= 1 && was_empty && actions.first() != 0)
            append(name, "ot_section_separator", 0);
        for (const int action : actions) {
            if (action == 0 && run < 1)
                continue;
            append(name, *component, action);
        }

        for (const QByteArray& later : sections.sliced(target.index + 1)) {
            bool first = true;
            for (const Item& item : std::as_const(behind)) {
                if (item.section != later)
                    continue;
                if (first && run > 0 && item.action)
                    append(later, "ot_section_separator", 0);
                first = false;
                if (item.action || run > 0)
                    append(later, item.owner, item.action);
            }
        }
    }

    void remove_items(const Name& component)
    {
        if (!component || kind == Kind::Nothing)
            return;
        int kept = 0;
        int lost = 0;
        QList<Item> left;
        for (const Item& item : std::as_const(items)) {
            const bool goes = item.owner == *component || (!item.action && kept == 0);
            if (!goes) {
                kept += item.action ? 1 : 0;
                left.append(item);
                continue;
            }
            if (!item.action && kind == Kind::Toolbar)
                ++lost;
            else
                hide(item);
        }
        items = left;
        if (lost > 0)
            rows.clear();
    }

    QList<int> get_items(const Name& section) const
    {
        QList<int> out;
        if (sections.isEmpty())
            return out;
        const QByteArray wanted = section ? *section : sections.first();
        for (const Item& item : items)
            if (item.section == wanted && item.action && !dead.contains(item.action))
                out.append(item.action);
        return out;
    }

    void delete_action(int action)
    {
        dead.append(action);
        rows.removeAll(action);
    }
};

/** The real list with its widget, and the numbers of its actions. */
struct Real
{
    explicit Real(Kind kind)
    {
        if (kind == Kind::Menu)
            list.set_menu(&menu, nullptr);
        else if (kind == Kind::Toolbar)
            list.set_toolbar(&toolbar);
    }

    QAction* action(int number) const { return number ? address.at(number - 1) : nullptr; }

    int make_action()
    {
        actions.push_back(std::make_unique<QAction>(QString::number(actions.size() + 1)));
        address.append(actions.back().get());
        return static_cast<int>(actions.size());
    }

    QMenu menu;
    QToolBar toolbar;
    std::vector<std::unique_ptr<QAction>> actions;
    QList<QAction*> address; // of those that are deleted too
    MenuSections list{u"list"_s};
};

QString text(const Model& model)
{
    QStringList items;
    for (const Model::Item& item : model.items)
        items << QString::fromUtf8(item.section + '/' + item.owner + '/') +
                     (item.action ? QString::number(item.action) : u"---"_s);
    QStringList rows;
    for (const int row : model.rows)
        rows << (row > 0 ? QString::number(row) : u"---"_s);
    return QString::fromUtf8(model.sections.join(' ')) + u" | "_s + items.join(u' ') + u" | "_s +
           rows.join(u' ');
}

/** What differs between the list and the model; empty if nothing does. */
QString difference(const Real& real, const Model& model)
{
    QList<QByteArray> sections;
    qsizetype place = 0;
    const QList<QAction*> rows = model.kind == Kind::Toolbar ? real.toolbar.actions() : real.menu.actions();
    for (const MenuSection* section : real.list.sections) {
        sections << section->name.toUtf8();
        for (const MenuEntry* entry : section->entries) {
            if (place == model.items.size())
                return u"more entries"_s;
            const Model::Item& item = model.items.at(place++);
            if (section->name.toUtf8() != item.section || entry->owner.toUtf8() != item.owner)
                return u"section or owner of entry %1"_s.arg(place);
            if (entry->action != real.action(item.action))
                return u"action of entry %1"_s.arg(place);
            if (!item.action && model.kind == Kind::Menu) {
                const qsizetype row = model.rows.indexOf(item.separator);
                if (!entry->separator || rows.indexOf(entry->separator) != row)
                    return u"separator of entry %1"_s.arg(place);
            } else if (entry->separator) {
                return u"separator of entry %1 where there is none"_s.arg(place);
            }
        }
    }
    if (place != model.items.size())
        return u"fewer entries"_s;
    if (sections != model.sections)
        return u"sections"_s;

    if (rows.size() != model.rows.size())
        return u"number of rows"_s;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const int row = model.rows.at(i);
        const bool same = row > 0 ? rows.at(i) == real.action(row) : rows.at(i)->isSeparator();
        if (!same)
            return u"row %1"_s.arg(i);
    }
    return {};
}

} // namespace

class TstMenuSectionsProperty : public TestCase
{
    Q_OBJECT

private slots:
    void any_sequence_of_additions_and_removals_follows_the_rules_data();
    void any_sequence_of_additions_and_removals_follows_the_rules();

private:
    int below(int bound) { return static_cast<int>(mRandom.bounded(bound)); }
    Name section();
    Name component();
    int action_or_separator(Real& real, const Model& model);
    QString act(Real& real, Model& model);

    QRandomGenerator mRandom;
};

Name TstMenuSectionsProperty::section()
{
    static const std::array<Name, 8> names{
        Name("a"), Name("b"), Name("c"), Name("d"), Name("A"), Name(""), Name("list_section"), Name()};
    return names.at(static_cast<std::size_t>(below(names.size())));
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
    return names.at(static_cast<std::size_t>(below(names.size())));
}

int TstMenuSectionsProperty::action_or_separator(Real& real, const Model& model)
{
    const int choice = below(10);
    if (choice < 4)
        return 0;
    // Now and then one that is in the list already.
    if (choice == 4 && !real.actions.empty()) {
        const int known = 1 + below(static_cast<int>(real.actions.size()));
        if (!model.dead.contains(known))
            return known;
    }
    return real.make_action();
}

// Does the same to both; returns what was done, with a "!" in front if the answers differ.
QString TstMenuSectionsProperty::act(Real& real, Model& model)
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
        if (in)
            model.find_section(in, position);
        return told("add_section");
    }
    case 1: {
        int run = -1;
        int total = -1;
        const MenuSection* const found = real.list.find_section(data_or_null(in), position, &run, &total);
        const Model::Found expected = model.find_section(in, position);
        const bool same = run == expected.run && total == expected.total &&
                          found == real.list.sections.at(static_cast<std::size_t>(expected.index));
        return (same ? u""_s : u"! "_s) + told("find_section");
    }
    case 2: {
        std::vector<QAction*> out{nullptr};
        std::vector<QAction*> expected{nullptr};
        real.list.get_items(out, data_or_null(in));
        for (const int number : model.get_items(in))
            expected.push_back(real.action(number));
        return (out == expected ? u""_s : u"! "_s) + told("get_items");
    }
    case 3:
    case 4:
    case 5:
        real.list.remove_items(data_or_null(by));
        model.remove_items(by);
        return told("remove_items");
    case 6:
    case 7: {
        const int item = action_or_separator(real, model);
        real.list.add_item(real.action(item), data_or_null(by), data_or_null(in));
        model.add_items({item}, by, in);
        return told("add_item") + u", %1"_s.arg(item);
    }
    case 8: {
        if (real.actions.empty())
            return told("nothing for");
        const int victim = 1 + below(static_cast<int>(real.actions.size()));
        if (below(3) != 0 || model.dead.contains(victim))
            return told("nothing for");
        real.actions.at(static_cast<std::size_t>(victim - 1)).reset();
        model.delete_action(victim);
        return u"deletion of %1"_s.arg(victim);
    }
    default: {
        QList<int> numbers(below(6));
        std::vector<QAction*> actions;
        QString list;
        for (int& number : numbers) {
            number = action_or_separator(real, model);
            actions.push_back(real.action(number));
            list += u" %1"_s.arg(number);
        }
        real.list.add_items(actions, data_or_null(by), data_or_null(in));
        model.add_items(numbers, by, in);
        return told("add_items") + u","_s + list;
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
    const auto seed = qEnvironmentVariableIsSet("OSTREL_TEST_SEED")
                          ? static_cast<quint32>(qEnvironmentVariableIntValue("OSTREL_TEST_SEED"))
                          : QRandomGenerator::global()->generate() & 0x7fffffff;
    qInfo("OSTREL_TEST_SEED=%u", seed);
    mRandom.seed(seed);

    constexpr int steps = 30;
    for (int run = 0; run < runs; ++run) {
        Real real(static_cast<Kind>(kind));
        Model model;
        model.kind = static_cast<Kind>(kind);
        QStringList done;
        for (int step = 0; step < steps; ++step) {
            done << act(real, model);
            const QString wrong = done.constLast().startsWith(u'!') ? u"answer"_s : difference(real, model);
            QVERIFY2(wrong.isEmpty(), qPrintable(u"%1 differs after\n%2\nexpected %3"_s.arg(
                                          wrong, done.join(u'\n'), text(model))));
        }
        // The buttons that wait for their deletion, and the queue, which would grow over all runs.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::sendPostedEvents();
    }
}

OSTREL_TEST(TstMenuSectionsProperty)

#include "tst_menusections_property.moc"
