// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/plain_command.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QFile>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <chrono>

using namespace fennar;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/** What the application is doing when the user does something in the editor. */
enum class State {
    Idle,
    Running,
    Paused,
    Cancelling,
    ClosingEditor,
    ClosingWindow,
};

struct Step
{
    const char* name;
    std::function<void(JournalEditor*)> run;
};

Step action(const char* name)
{
    return {name, [name](JournalEditor* editor) {
                editor->findChild<QAction*>(QLatin1StringView(name))->trigger();
            }};
}

/** Everything that the editor offers: its actions, what the context menu calls, and the tabs' buttons. */
QList<Step> steps()
{
    QList<Step> result;
    for (const char* name :
         {"fileNewAction", "fileOpenAction", "fileSaveAction", "fileSaveAsAction", "filePrintAction",
          "fileExitAction", "editCutAction", "editCopyAction", "editPasteAction", "editFindAction",
          "toolsPlayAction", "editUndoAction", "editRedoAction", "fileCloseAction", "fileSaveAllAction",
          "fennarTransAction", "toolsPythonize"})
        result << action(name);
    return result << QList<Step>{
               {"playSelected", &JournalEditor::playSelected},
               {"pythonizeSelected", &JournalEditor::pythonizeSelected},
               {"commentSelected", &JournalEditor::commentSelected},
               {"uncommentSelected", &JournalEditor::uncommentSelected},
               {"commentOrUncommentSelected", &JournalEditor::commentOrUncommentSelected},
               {"findText", &JournalEditor::findText},
               {"button of the tab", [](JournalEditor* editor) { editor->close_tab(0); }},
               {"recent journal",
                [](JournalEditor* editor) { editor->open_file(editor->property("file").toString()); }},
               {"import of the console",
                [](JournalEditor* editor) {
                    editor->findChild<QMenu*>(u"fileImportMenu"_s)->actions().last()->trigger();
                }},
           };
}

// How the rows that describe documents begin.
const auto modified = u"modified: "_s;
const auto clean = u"clean: "_s;

/** Without the documents that may go without a question. */
QStringList without_clean(QStringList rows)
{
    rows.removeIf([](const QString& row) { return row.startsWith(clean); });
    return rows;
}

/** Dismisses each modal dialog that comes, and counts them. */
class Dismisser
{
public:
    Dismisser()
    {
        QObject::connect(&mTimer, &QTimer::timeout, &mTimer, [this] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                ++count;
                dialog->reject();
            }
        });
        mTimer.start(1ms);
    }

    int count = 0;

private:
    QTimer mTimer;
};

} // namespace

Q_DECLARE_METATYPE(State)

/**
 * Each thing that can be done in the editor is done in each state of playback. What it does to the documents
 * must be what it does while nothing plays, and the journal runs as it would have run without.
 */
class TstJournalPlayerStates : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override { workbench.leave_components_out(); }
    void set_up_class() override;
    void tear_down() override;
    void tear_down_class() override { Fennar::instance().registry().remove_owner(u"test"_s); }

private slots:
    void every_action_is_walked();
    void editor_in_each_state_data();
    void editor_in_each_state();

private:
    static JournalEditor* editor() { return Ostrel::instance()->journal_editor(); }
    static QTabWidget* tabs() { return editor()->findChild<QTabWidget*>(u"mDocTab"_s); }
    static QPlainTextEdit* document(int index)
    {
        return qobject_cast<QPlainTextEdit*>(tabs()->widget(index));
    }
    void reset_documents();
    void reach(State state);
    QStringList documents() const;
    QStringList walk(State state, const Step& step);

    QTemporaryDir mDirectory;
    QString mFile;
    /** What "act" does in the middle of the journal. */
    std::function<void()> mAct;
    QList<int> mCounted;
    QMap<QString, QStringList> mIdle;
};

void TstJournalPlayerStates::set_up_class()
{
    CommandRegistry& registry = Fennar::instance().registry();
    registry.add(plain_command(u"count"_s, u"test"_s, [this](CommandCall& call) {
        mCounted << call.words().value(1).text.toInt();
    }));
    registry.add(plain_command(u"act"_s, u"test"_s, [this](CommandCall&) {
        if (const auto act = std::exchange(mAct, nullptr))
            act();
    }));
    mFile = mDirectory.filePath(u"a.jou"_s);
    editor()->setProperty("file", mFile);
    editor()->show();
}

void TstJournalPlayerStates::tear_down()
{
    // The editor leaves its find dialogs to whoever comes behind.
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (qobject_cast<QDialog*>(window) && !window->parent())
            delete window;
    }
}

/** Leaves one modified document with a file and a selection, and one without a file behind it. */
void TstJournalPlayerStates::reset_documents()
{
    editor()->fileNew();
    QWidget* const fresh = tabs()->currentWidget();
    while (tabs()->count() > 1) {
        const int old = tabs()->widget(0) == fresh ? 1 : 0;
        document(old)->document()->setModified(false);
        tabs()->setCurrentIndex(old);
        editor()->fileClose();
    }
    // Written when no journal of it is open any more, which would count as one that others have changed.
    QFile file(mFile);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("count 1\nact\ncount 2\n");
    file.close();
    editor()->open_file(mFile);
    QCOMPARE(tabs()->count(), 1);
    document(0)->moveCursor(QTextCursor::End);
    document(0)->insertPlainText(u"# edited"_s);
    QTextCursor cursor = document(0)->textCursor();
    cursor.movePosition(QTextCursor::Start);
    cursor.movePosition(QTextCursor::NextWord, QTextCursor::KeepAnchor);
    document(0)->setTextCursor(cursor);
    editor()->add_document(u"# another journal"_s);
    workbench().console()->error_page()->setPlainText(u"an error"_s);
    tabs()->setCurrentIndex(0);
    QGuiApplication::clipboard()->setText(u"pasted"_s);
    QVERIFY(document(0)->document()->isModified() && document(1)->document()->isModified());
}

QStringList TstJournalPlayerStates::documents() const
{
    QStringList result;
    for (int i = 0; i < tabs()->count(); ++i) {
        const QTextDocument* text = document(i)->document();
        result << (text->isModified() ? modified : clean) + tabs()->tabText(i) + u": "_s +
                      text->toPlainText();
    }
    QFile file(mFile);
    if (file.open(QIODevice::ReadOnly))
        result << QString::fromUtf8(file.readAll());
    return result << QGuiApplication::clipboard()->text();
}

/** Called while the journal runs or, for all states but Running, waits. */
void TstJournalPlayerStates::reach(State state)
{
    switch (state) {
    case State::Cancelling:
        Ostrel::instance()->findChild<QToolButton*>(u"mCancel"_s)->click();
        break;
    case State::ClosingEditor:
        editor()->close();
        break;
    case State::ClosingWindow:
        Ostrel::instance()->close();
        break;
    default:
        break;
    }
}

/** Returns what the documents are afterwards. */
QStringList TstJournalPlayerStates::walk(State state, const Step& step)
{
    reset_documents();
    const Dismisser dismisser;
    QStringList after;
    QAction* const pause = Ostrel::instance()->tools_menu()->pause_action();
    if (state == State::Idle) {
        step.run(editor());
        // What has been played by it must be over.
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
        mCounted.clear();
        return documents();
    }
    mCounted.clear();
    mAct = [&] {
        const auto act = [&] {
            reach(state);
            step.run(editor());
            after = documents();
            pause->setChecked(false);
        };
        if (state == State::Running)
            act();
        else
            QTimer::singleShot(0, this, act);
        // The journal waits ahead of the next command, with all input swallowed.
        pause->setChecked(state != State::Running);
    };
    editor()->playFile();
    [&] { QTRY_VERIFY(!after.isEmpty() && !workbench().console()->is_running()); }();
    const bool closing = state == State::ClosingEditor || state == State::ClosingWindow;
    if (closing)
        [&] { QTRY_VERIFY(dismisser.count > 0); }();
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
    // A window that is closed asks for each document in turn, and clean ones are gone when it is refused.
    const bool kept = closing ? without_clean(after) == without_clean(documents()) : after == documents();
    return kept ? after : after << u"changed later:"_s << documents();
}

void TstJournalPlayerStates::every_action_is_walked()
{
    QStringList walked;
    for (const Step& step : steps())
        walked << QLatin1StringView(step.name);
    for (const QAction* action : editor()->findChildren<QAction*>()) {
        const QString name = action->objectName();
        // Those of the toolkit's own widgets; the recent journals and the import items have steps of their
        // own.
        if (name.isEmpty() || name.startsWith(u'_') || name == u"JournalImportAction"_s)
            continue;
        QVERIFY2(walked.contains(name), qPrintable(name));
    }
}

void TstJournalPlayerStates::editor_in_each_state_data()
{
    QTest::addColumn<State>("state");
    QTest::addColumn<int>("step");
    const QList<Step> all = steps();
    const QList<QPair<State, const char*>> states{
        {State::Idle, "idle"},
        {State::Running, "running"},
        {State::Paused, "paused"},
        {State::Cancelling, "cancelling"},
        {State::ClosingEditor, "closing the editor"},
        {State::ClosingWindow, "closing the window"},
    };
    for (const auto& [state, name] : states) {
        for (int i = 0; i < all.size(); ++i)
            QTest::addRow("%s: %s", name, all[i].name) << state << i;
    }
}

void TstJournalPlayerStates::editor_in_each_state()
{
    QFETCH(const State, state);
    QFETCH(const int, step);
    const Step what = steps().at(step);
    const QStringList after = walk(state, what);
    QVERIFY(!QTest::currentTestFailed());
    QVERIFY(Ostrel::instance()->isVisible());
    if (state == State::Idle)
        mIdle[QLatin1StringView(what.name)] = after;
    else
        QCOMPARE(after, mIdle.value(QLatin1StringView(what.name)));
    const bool ended = state == State::Cancelling || state == State::ClosingWindow;
    if (state != State::Idle)
        QCOMPARE(mCounted, ended ? QList<int>{1} : QList<int>({1, 2}));
    QVERIFY(!Fennar::instance().playback().is_paused());
    editor()->show();
}

OSTREL_TEST(TstJournalPlayerStates)
#include "tst_journalplayer_states.moc"
