// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "page.h"
#include "support/TestCase.h"
#include "support/random_seed.h"
#include "support/windows.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/** The rules of a page on one text with line feeds: output lines, then the last line with prompt and command.
 */
struct Model
{
    QString text;
    qsizetype caret = 0;
    qsizetype anchor = 0;
    QString prompt = u"$ "_s;
    QString continuation;
    bool promptShown = false;
    bool outputLineOpen = false;
    bool readOnly = false;
    int limit = 1000;
    QStringList signalsSent;

    qsizetype last_line() const { return text.lastIndexOf(u'\n') + 1; }
    qsizetype command_start() const { return std::min(last_line() + prompt.size(), text.size()); }
    QString command() const { return text.sliced(command_start()); }
    qsizetype index() const { return caret - command_start(); }
    bool has_selection() const { return caret != anchor; }
    bool selection_outside() const
    {
        return has_selection() && std::min(caret, anchor) < last_line() + prompt.size();
    }

    void put_caret(qsizetype position) { caret = anchor = position; }

    void insert(qsizetype position, const QString& added)
    {
        text.insert(position, added);
        for (qsizetype* end : {&caret, &anchor}) {
            if (*end >= position)
                *end += added.size();
        }
        apply_limit();
    }

    void remove(qsizetype position, qsizetype length)
    {
        text.remove(position, length);
        for (qsizetype* end : {&caret, &anchor}) {
            if (*end > position)
                *end = std::max(position, *end - length);
        }
    }

    void apply_limit()
    {
        while (limit > 0 && text.count(u'\n') + 1 > limit)
            remove(0, text.indexOf(u'\n') + 1);
    }

    void remove_selection() { remove(std::min(caret, anchor), std::abs(caret - anchor)); }

    void type(const QString& added)
    {
        remove_selection();
        insert(caret, added);
    }

    // Slots.

    void print_output(const QString& output)
    {
        const bool endsLine = output.endsWith(u'\n');
        if (outputLineOpen && last_line() > 0)
            insert(last_line() - 1, endsLine ? output.chopped(1) : output);
        else
            insert(last_line(), endsLine ? output : output + u'\n');
        outputLineOpen = !endsLine;
    }

    void print_prompt(bool continues, const QString& indent)
    {
        outputLineOpen = false;
        if (promptShown)
            return;
        const QString shown = continues ? continuation : prompt;
        const qsizetype start = last_line();
        insert(start, shown);
        insert(start + shown.size(), indent);
        promptShown = true;
    }

    void set_prompt(const QString& both)
    {
        prompt = continuation = both;
        if (!promptShown)
            return;
        const qsizetype start = last_line();
        remove(start, text.size() - start);
        insert(start, prompt);
    }

    void set_command(QString command)
    {
        if (command.endsWith(u'\n'))
            command.chop(1);
        const qsizetype start = command_start();
        remove(start, text.size() - start);
        insert(start, command);
    }

    void add_external(const QString& command)
    {
        if (!promptShown)
            print_prompt(false, {});
        set_command(command);
        insert(text.size(), u"\n"_s);
        promptShown = false;
    }

    void insert_in_command(const QString& added)
    {
        if (index() < 0)
            put_caret(text.size());
        type(added);
    }

    void paste(const QString& pasted)
    {
        if (pasted.contains(u'\n'))
            signalsSent << u"lines: "_s + pasted.split(u'\n').join(u", "_s);
        else
            insert_in_command(pasted);
    }

    void clear()
    {
        text.clear();
        put_caret(0);
        promptShown = false;
        print_prompt(false, {});
        signalsSent << u"cleared"_s;
    }

    // Keys.

    void come_home(bool dueToText)
    {
        const qsizetype idx = index();
        if (!dueToText || (idx >= 0 && !selection_outside()))
            return;
        put_caret(idx < 0 && idx + prompt.size() >= 0 ? command_start() : text.size());
    }

    void press_return()
    {
        const QString entered = command();
        put_caret(text.size());
        if (!readOnly)
            insert(text.size(), u"\n"_s);
        promptShown = false;
        signalsSent << u"reset"_s << u"entered: "_s + entered;
    }

    /** Does what is known of a key; false if the base class moves the caret in a way of its own. */
    bool press(int key, Qt::KeyboardModifiers modifiers, const QString& typed)
    {
        const bool control = modifiers.testFlag(Qt::ControlModifier);
        const bool shift = modifiers.testFlag(Qt::ShiftModifier);
        const qsizetype idx = index();
        come_home(!typed.isEmpty() && !(control && key == Qt::Key_C));
        switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            press_return();
            return true;
        case Qt::Key_Home:
            if (caret < last_line())
                return false;
            caret = command_start();
            if (!shift)
                anchor = caret;
            return true;
        case Qt::Key_Backspace:
            if (idx <= 0 && !has_selection())
                return true;
            if (readOnly || (control && !has_selection()))
                return false;
            if (has_selection())
                remove_selection();
            else
                remove(caret - 1, 1);
            return true;
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (idx < 0)
                return false;
            signalsSent << (key == Qt::Key_Up ? u"up"_s : u"down"_s);
            return true;
        case Qt::Key_K:
            if (control) {
                if (idx >= 0)
                    set_command(command().first(idx));
                return true;
            }
            break;
        case Qt::Key_U:
            if (control) {
                if (idx >= 0)
                    set_command(command().sliced(idx));
                return true;
            }
            break;
        case Qt::Key_T:
            if (control) {
                insert(text.size(), u"fennar.cmd()"_s);
                put_caret(text.size() - 1);
                return true;
            }
            break;
        default:
            break;
        }
        if (readOnly)
            return false;
        if (key == Qt::Key_Delete && !(control && !has_selection())) {
            if (has_selection())
                remove_selection();
            else if (!shift && caret < text.size()) // with Shift it cuts
                remove(caret, 1);
            return true;
        }
        if (control && key == Qt::Key_X) {
            remove_selection();
            return true;
        }
        if (control && key == Qt::Key_V) {
            paste(QGuiApplication::clipboard()->text());
            return true;
        }
        if (control && (key == Qt::Key_C || key == Qt::Key_Z))
            return true;
        if (control && key == Qt::Key_A) {
            anchor = 0;
            caret = text.size();
            return true;
        }
        if (!control && !typed.isEmpty() && typed.front().isPrint()) {
            type(typed);
            return true;
        }
        return false;
    }
};

struct Key
{
    int key;
    Qt::KeyboardModifiers modifiers;
};

constexpr auto control = Qt::ControlModifier;
constexpr auto shift = Qt::ShiftModifier;

constexpr std::array special_keys = {Key{Qt::Key_Return, {}},       Key{Qt::Key_Return, shift},
                                     Key{Qt::Key_Enter, control},   Key{Qt::Key_Home, {}},
                                     Key{Qt::Key_Home, shift},      Key{Qt::Key_Home, control},
                                     Key{Qt::Key_Backspace, {}},    Key{Qt::Key_Backspace, {}},
                                     Key{Qt::Key_Backspace, shift}, Key{Qt::Key_Backspace, control},
                                     Key{Qt::Key_Delete, {}},       Key{Qt::Key_Delete, {}},
                                     Key{Qt::Key_Delete, shift},    Key{Qt::Key_Delete, control},
                                     Key{Qt::Key_Up, {}},           Key{Qt::Key_Down, {}},
                                     Key{Qt::Key_Up, shift},        Key{Qt::Key_Down, shift},
                                     Key{Qt::Key_K, control},       Key{Qt::Key_U, control},
                                     Key{Qt::Key_T, control},       Key{Qt::Key_K, control | shift},
                                     Key{Qt::Key_C, control},       Key{Qt::Key_X, control},
                                     Key{Qt::Key_V, control},       Key{Qt::Key_A, control},
                                     Key{Qt::Key_Z, control},       Key{Qt::Key_Z, control | shift},
                                     Key{Qt::Key_Left, {}},         Key{Qt::Key_Left, shift},
                                     Key{Qt::Key_Left, control},    Key{Qt::Key_Right, {}},
                                     Key{Qt::Key_Right, shift},     Key{Qt::Key_Right, control | shift},
                                     Key{Qt::Key_End, {}},          Key{Qt::Key_End, shift},
                                     Key{Qt::Key_End, control},     Key{Qt::Key_PageUp, {}},
                                     Key{Qt::Key_PageDown, {}},     Key{Qt::Key_PageUp, shift},
                                     Key{Qt::Key_Escape, {}},       Key{Qt::Key_Tab, {}},
                                     Key{Qt::Key_Insert, {}},       Key{Qt::Key_F5, {}}};

} // namespace

class TstCommandWidgetProperty : public TestCase
{
    Q_OBJECT

private slots:
    void any_sequence_of_input_and_output_follows_the_rules();

private:
    void act(Page& page, Model& model);
    void press_key(Page& page, Model& model);
    void use_mouse(Page& page, Model& model);
    void call_slot(Page& page, Model& model);
    void take_caret(const Page& page, Model& model);

    template <typename List>
    auto pick(const List& list)
    {
        return list[static_cast<size_t>(mRandom.bounded(static_cast<int>(std::size(list))))];
    }
    QString word() { return pick(std::array{u""_s, u" "_s, u"a"_s, u"list"_s, u"  two words "_s, u"$ "_s}); }
    QString any_prompt() { return pick(std::array{u"$ "_s, u">>> "_s, u"... "_s, u""_s, u"a"_s}); }
    QString words_and_lines();

    QRandomGenerator mRandom;
    QStringList mHistory;
};

QString TstCommandWidgetProperty::words_and_lines()
{
    QString text;
    for (int count = mRandom.bounded(5); count > 0; --count)
        text += mRandom.bounded(2) ? word() : u"\n"_s;
    return text;
}

/** Lets the model follow a movement of the caret that is the base class's own business. */
void TstCommandWidgetProperty::take_caret(const Page& page, Model& model)
{
    model.caret = page.textCursor().position();
    model.anchor = page.textCursor().anchor();
}

void TstCommandWidgetProperty::press_key(Page& page, Model& model)
{
    Key key;
    QString text;
    if (mRandom.bounded(2)) {
        key = pick(special_keys);
        text = key_text(key.key, key.modifiers);
    } else {
        key = {pick(std::array{int(Qt::Key_A), int(Qt::Key_K), int(Qt::Key_U), int(Qt::Key_T), int(Qt::Key_C),
                               int(Qt::Key_Space), int(Qt::Key_1)}),
               mRandom.bounded(4) ? Qt::KeyboardModifiers() : Qt::KeyboardModifiers(shift)};
        text = key_text(key.key, key.modifiers);
    }
    if (key.key == Qt::Key_V) {
        const QString pasted = mRandom.bounded(4) ? word() : words_and_lines();
        QGuiApplication::clipboard()->setText(pasted);
    }
    mHistory << u"key %1 %2"_s.arg(key.key, 0, 16).arg(key.modifiers.toInt(), 0, 16);

    const QString fixed = page.text().first(model.command_start());
    const bool known = model.press(key.key, key.modifiers, text);
    page.press(key.key, key.modifiers, text);
    const bool entersLine = key.key == Qt::Key_Return || key.key == Qt::Key_Enter;
    if (!entersLine)
        QVERIFY2(page.text().left(fixed.size()) == fixed, "a key altered output or prompt");
    if (known)
        return;
    // Deleting by the word: how far a word reaches is the base class's business.
    if (!model.readOnly && key.modifiers == control &&
        (key.key == Qt::Key_Backspace || key.key == Qt::Key_Delete)) {
        QVERIFY(page.text().size() <= model.text.size());
        model.text = page.text();
    } else if (!model.readOnly && key.key == Qt::Key_Tab) {
        model.type(u"\t"_s);
    }
    take_caret(page, model);
}

void TstCommandWidgetProperty::use_mouse(Page& page, Model& model)
{
    // Sent by hand, since a drag of text would begin where a press meets a selection.
    const auto send = [&](QEvent::Type type, const QPoint& position, Qt::MouseButton button, bool held) {
        QMouseEvent event(type, position, page.viewport()->mapToGlobal(position), button,
                          held ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(page.viewport(), &event);
    };
    const auto somewhere = [&] {
        return QPoint(mRandom.bounded(page.viewport()->width()), mRandom.bounded(page.viewport()->height()));
    };
    page.put_caret(page.textCursor().position());
    const QPoint from = somewhere();
    mHistory << u"mouse"_s;
    send(QEvent::MouseButtonPress, from, Qt::LeftButton, true);
    QPoint to = from;
    if (mRandom.bounded(2)) {
        to = somewhere();
        send(QEvent::MouseMove, to, Qt::NoButton, true);
    }
    send(QEvent::MouseButtonRelease, to, Qt::LeftButton, false);
    take_caret(page, model);
}

void TstCommandWidgetProperty::call_slot(Page& page, Model& model)
{
    switch (mRandom.bounded(16)) {
    case 0:
    case 1:
    case 2:
    case 3: {
        const QString output = words_and_lines();
        mHistory << u"printOutput "_s + output;
        page.printOutput(output);
        model.print_output(output);
        break;
    }
    case 4:
    case 5:
    case 6: {
        const bool continues = mRandom.bounded(3) == 0;
        const QString indent = pick(std::array{u""_s, u"    "_s, u"\u00E9"_s});
        mHistory << u"printPrompt %1 "_s.arg(continues) + indent;
        page.printPrompt(continues, indent.isEmpty() ? nullptr : indent.toUtf8().constData());
        model.print_prompt(continues, indent);
        break;
    }
    case 7: {
        const QString prompt = any_prompt();
        mHistory << u"setPrompt "_s + prompt;
        page.setPrompt(prompt);
        model.set_prompt(prompt);
        break;
    }
    case 8: {
        model.prompt = any_prompt();
        model.continuation = any_prompt();
        mHistory << u"setPrompt "_s + model.prompt + u", "_s + model.continuation;
        page.setPrompt(model.prompt, model.continuation);
        break;
    }
    case 9: {
        const QString command = word() + (mRandom.bounded(3) ? u""_s : u"\n"_s);
        mHistory << u"setCurrentCommand "_s + command;
        page.setCurrentCommand(command);
        model.set_command(command);
        break;
    }
    case 10: {
        const QString command = word() + (mRandom.bounded(3) ? u""_s : u"\n"_s);
        mHistory << u"addExternalCommand "_s + command;
        page.addExternalCommand(command);
        model.add_external(command);
        break;
    }
    case 11: {
        const QString added = mRandom.bounded(5) ? word() : words_and_lines();
        mHistory << u"appendToCommand "_s + added;
        page.appendToCommand(added);
        model.insert(model.text.size(), added);
        break;
    }
    case 12: {
        const QString added = mRandom.bounded(5) ? word() : words_and_lines();
        mHistory << u"insertInCommand "_s + added;
        page.insertInCommand(added);
        model.insert_in_command(added);
        break;
    }
    case 13: {
        const QString pasted = mRandom.bounded(2) ? word() : words_and_lines();
        mHistory << u"paste "_s + pasted;
        page.paste_text(pasted);
        model.paste(pasted);
        break;
    }
    case 14: {
        if (mRandom.bounded(3) == 0) {
            mHistory << u"clearToPrompt"_s;
            page.clearToPrompt();
            model.clear();
        } else {
            model.limit = pick(std::array{0, 1, 2, 3, 7, 20});
            mHistory << u"limit %1"_s.arg(model.limit);
            page.document()->setMaximumBlockCount(model.limit);
            model.apply_limit();
        }
        break;
    }
    default:
        model.readOnly = !model.readOnly && mRandom.bounded(2);
        mHistory << u"read-only %1"_s.arg(model.readOnly);
        page.setReadOnly(model.readOnly);
        break;
    }
}

void TstCommandWidgetProperty::act(Page& page, Model& model)
{
    const int choice = mRandom.bounded(10);
    if (choice < 6)
        press_key(page, model);
    else if (choice < 7)
        use_mouse(page, model);
    else
        call_slot(page, model);
}

void TstCommandWidgetProperty::any_sequence_of_input_and_output_follows_the_rules()
{
    mRandom.seed(random_seed());

    constexpr int runs = 1600;
    constexpr int steps = 80;
    for (int run = 0; run < runs; ++run) {
        Page page;
        page.resize(200, 120);
        QVERIFY(show_active(&page));
        Model model;
        mHistory.clear();
        for (int step = 0; step < steps; ++step) {
            act(page, model);
            const auto failure = [&](const char* what, const QString& found, const QString& expected) {
                return u"%1 after %2 steps of run %3:\n  found    %4\n  expected %5\n  last steps: %6"_s
                    .arg(QString::fromLatin1(what))
                    .arg(step + 1)
                    .arg(run)
                    .arg(found, expected,
                         mHistory.last(std::min<qsizetype>(mHistory.size(), 8)).join(u" | "_s));
            };
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(failure("failed", page.state(), model.text)));
            QVERIFY2(page.text() == model.text, qPrintable(failure("text", page.text(), model.text)));
            QVERIFY2(
                page.textCursor().position() == model.caret && page.textCursor().anchor() == model.anchor,
                qPrintable(failure("caret", page.state(), u"%1 to %2"_s.arg(model.anchor).arg(model.caret))));
            const QStringList emitted = page.take_signals();
            const QStringList expected = std::exchange(model.signalsSent, {});
            QVERIFY2(emitted == expected,
                     qPrintable(failure("signals", emitted.join(u"; "_s), expected.join(u"; "_s))));
            QVERIFY2(page.currentCommand() == model.command() && page.cursorIndex() == model.index(),
                     qPrintable(failure("command", page.currentCommand(), model.command())));
        }
    }
    QGuiApplication::clipboard()->clear();
}

OSTREL_TEST(TstCommandWidgetProperty)
#include "tst_commandwidget_property.moc"
