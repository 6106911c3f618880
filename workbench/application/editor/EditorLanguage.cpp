// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/editor/EditorLanguage.h"

#include "journal/JournalEditor.h"
#include "workbench/application/console/LineInterpreter.h"
#include "workbench/application/editor/EditorCompletion.h"
#include "workbench/application/editor/editor_options.h"
#include "workbench/application/editor/mark_python.h"
#include "workbench/sdk/component/journal_documents.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/ContinuedCommand.h"
#include "workbench/sdk/core/commands/Playback.h"

#include <QEvent>
#include <QPlainTextEdit>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

bool is_python(const QPlainTextEdit* document)
{
    if (journal_file(document).endsWith(".py"_L1))
        return true;
    QTextBlock block = document->document()->begin();
    while (block.isValid() && QStringView(block.text()).trimmed().isEmpty())
        block = block.next();
    return Playback::is_python(block.text());
}

/** The lines of a Python statement ahead of @p line, from its last line that begins at the margin on. Nothing
 * of a document that is too long to be looked at for a key. */
QString begun_statement(const QTextBlock& line)
{
    QStringList statement;
    if (line.document()->characterCount() > DocumentMarks::most_characters(DocumentMarks::Language::Python))
        return {};
    PythonString string = PythonString::None;
    for (QTextBlock block = line.document()->begin();; block = block.next()) {
        const QString text = block.text();
        const bool goes_on = text.isEmpty() || text[0].isSpace() || u")]}"_s.contains(text[0]) ||
                             string != PythonString::None ||
                             (!statement.isEmpty() && statement.last().endsWith(u'\\'));
        if (!goes_on)
            statement.clear();
        if (block == line)
            return statement.join(u'\n');
        statement << text;
        string = mark_python(text, string).string;
    }
}

bool is_dark(const QPlainTextEdit* document)
{
    return document->palette().color(QPalette::Base).lightness() < 128;
}

/** The shell goes by what the platform says of its colors, which need not be those of the document. */
void color_current_line(QPlainTextEdit* document)
{
    const QColor color = is_dark(document) ? QColor(75, 75, 75) : QColor(Qt::yellow).lighter(160);
    QList<QTextEdit::ExtraSelection> selections = document->extraSelections();
    if (selections.isEmpty() || selections.first().format.background() == color)
        return;
    selections.first().format.setBackground(color);
    document->setExtraSelections(selections);
}

LineCompletion complete_line(const QTextCursor& caret, CommandInterpreter& interpreter)
{
    const QString line = caret.block().text();
    const qsizetype column = caret.positionInBlock();
    // There Tab indents.
    if (QStringView(line).first(column).trimmed().isEmpty())
        return {.start = column};
    QTextBlock first = caret.block();
    while (first.previous().isValid() && first.previous().text().endsWith(u'\\'))
        first = first.previous();
    ContinuedCommand command;
    for (; first != caret.block(); first = first.next())
        command.add(first.text());
    return complete_commands(line, column, command.text(), interpreter);
}

} // namespace

EditorLanguage::EditorLanguage(JournalEditor* editor, CommandInterpreter& interpreter)
    : mEditor(editor), mTabs(journal_tabs(editor)), mInterpreter(interpreter)
{
    for (QTimer* timer : {&mLook, &mCommandsChanged}) {
        timer->setSingleShot(true);
        timer->setInterval(0);
    }
    connect(&mLook, &QTimer::timeout, this, &EditorLanguage::look_at_all);
    connect(&mCommandsChanged, &QTimer::timeout, this, &EditorLanguage::color_commands_again);
    connect(&interpreter.registry().entities(), &CommandEntities::changed, this, [this](const QString& kind) {
        if (kind == "command"_L1)
            mCommandsChanged.start();
    });
    if (mTabs) {
        // A new document, a document of another name. Later, when it has its text, since one that is too long
        // for colors would pay for them all the same.
        const auto look = [this] { mLook.start(); };
        connect(mTabs, &QTabWidget::currentChanged, this, look);
        connect(editor, &QWidget::windowTitleChanged, this, look);
    }
    read_settings();
}

EditorLanguage::~EditorLanguage()
{
    for (const QPlainTextEdit* document : journal_documents(mTabs)) {
        delete document->findChild<EditorCompletion*>();
        if (DocumentMarks* marks = DocumentMarks::find(document->document()))
            marks->set_language(Language::None, nullptr);
    }
}

void EditorLanguage::read_settings()
{
    mColors = editor_colors();
    mCompletes = editor_completes();
    look_at_all();
}

bool EditorLanguage::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        mLook.start();
    return false;
}

void EditorLanguage::look_at_all()
{
    for (QPlainTextEdit* document : journal_documents(mTabs))
        look_at(document);
}

void EditorLanguage::look_at(QPlainTextEdit* document)
{
    document->installEventFilter(this); // once, however often
    connect(document, &QPlainTextEdit::textChanged, this, &EditorLanguage::text_changed,
            Qt::UniqueConnection);
    // Behind the shell, which colors the line anew each time.
    connect(document, &QPlainTextEdit::cursorPositionChanged, this, &EditorLanguage::caret_moved,
            Qt::UniqueConnection);
    color_current_line(document);
    auto* completion = document->findChild<EditorCompletion*>();
    if (!mCompletes)
        delete completion;
    else if (!completion)
        new EditorCompletion(
            document, [this, document](const QTextCursor& caret) { return complete(document, caret); });
    const Language language = colored_language(document);
    DocumentMarks* marks = DocumentMarks::find(document->document());
    if (!marks && language == Language::None)
        return;
    marks = marks ? marks : DocumentMarks::of(document->document());
    marks->set_dark(is_dark(document));
    marks->set_language(language, &mInterpreter.registry());
}

void EditorLanguage::text_changed()
{
    const auto* document = qobject_cast<QPlainTextEdit*>(sender());
    const DocumentMarks* marks = document ? DocumentMarks::find(document->document()) : nullptr;
    if (document && colored_language(document) != (marks ? marks->language() : Language::None))
        mLook.start();
}

void EditorLanguage::caret_moved()
{
    if (auto* document = qobject_cast<QPlainTextEdit*>(sender()))
        color_current_line(document);
}

EditorLanguage::Language EditorLanguage::colored_language(const QPlainTextEdit* document) const
{
    const Language language = is_python(document) ? Language::Python : Language::Commands;
    const bool is_short = document->document()->characterCount() <= DocumentMarks::most_characters(language);
    return mColors && is_short ? language : Language::None;
}

void EditorLanguage::color_commands_again()
{
    for (const QPlainTextEdit* document : journal_documents(mTabs)) {
        DocumentMarks* marks = DocumentMarks::find(document->document());
        if (marks && marks->language() == Language::Commands)
            marks->color_again();
    }
}

LineCompletion EditorLanguage::complete(const QPlainTextEdit* document, const QTextCursor& caret) const
{
    if (!is_python(document))
        return complete_line(caret, mInterpreter);
    const QTextBlock line = caret.block();
    return complete_python(line.text(), caret.positionInBlock(), begun_statement(line));
}

} // namespace fennar
