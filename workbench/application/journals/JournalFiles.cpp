// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/journals/JournalFiles.h"

#include "frame/read_setting.h"
#include "frame/settings_keys.h"
#include "journal/JournalEditor.h"
#include "workbench/application/journals/journal_text.h"
#include "workbench/application/journals/line_differences.h"
#include "workbench/sdk/component/journal_documents.h"
#include "workbench/sdk/component/shell_access.h"

#include <QAction>
#include <QCryptographicHash>
#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTabWidget>
#include <QTextCursor>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <sys/stat.h>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace fennar {

namespace {

/** How long a file is left alone after a change. */
constexpr auto patience = 200ms;

/** As many as the editor's menu shows. */
constexpr int most_recent_journals = 5;

std::optional<QByteArray> content_of(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return {};
    return bytes;
}

QByteArray fingerprint_of(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

QString shown(const QString& file)
{
    return QDir::toNativeSeparators(file);
}

/**
 * Puts a journal first among the recent ones in the settings, as the editor does when it is closed: the list
 * is to hold what was saved even if the program does not come to that.
 */
void store_recent(const QString& file)
{
    using namespace settings_keys;
    QSettings settings;
    QStringList files{file};
    for (int number = 1; number <= most_recent_journals; ++number) {
        const QString other = read_setting(settings, numbered(recent_journal, number), QString());
        if (!other.isEmpty() && other != file)
            files << other;
    }
    for (int number = 1; number <= std::min<qsizetype>(files.size(), most_recent_journals); ++number)
        settings.setValue(numbered(recent_journal, number), files.at(number - 1));
    settings.sync();
}

/** One that is not modal, and deletes itself when it is closed. */
QMessageBox* make_box(QMessageBox::Icon icon, const QString& name, const QString& title, QWidget* parent)
{
    auto* const box = new QMessageBox(icon, title, {}, QMessageBox::NoButton, parent);
    box->setObjectName(name);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    // File names may look like markup.
    box->setTextFormat(Qt::PlainText);
    return box;
}

QPushButton* add_button(QMessageBox* box, const QString& name, const QString& text,
                        QMessageBox::ButtonRole role)
{
    QPushButton* const button = box->addButton(text, role);
    button->setObjectName(name);
    return button;
}

} // namespace

JournalFiles::State JournalFiles::State::of(const QString& file)
{
    struct stat found = {};
    if (file.isEmpty() || ::stat(QFile::encodeName(file).constData(), &found) != 0)
        return {};
    return {true,        S_ISREG(found.st_mode), found.st_size, found.st_mtim.tv_sec, found.st_mtim.tv_nsec,
            found.st_ino};
}

void JournalFiles::Watched::close_boxes() const
{
    delete question;
    delete comparison;
    delete complaint;
}

JournalFiles::JournalFiles(JournalEditor* editor, const Report& report)
    : mEditor(editor), mTabs(journal_tabs(editor)), mReport(report)
{
    if (!mTabs)
        return;
    mPatience.setSingleShot(true);
    mPatience.setInterval(patience);
    connect(&mPatience, &QTimer::timeout, this, &JournalFiles::check);
    const auto wait = [this] { mPatience.start(); };
    connect(&mWatcher, &QFileSystemWatcher::fileChanged, this, wait);
    connect(&mWatcher, &QFileSystemWatcher::directoryChanged, this, wait);
    // A new document, a document of another name.
    connect(mTabs, &QTabWidget::currentChanged, this, &JournalFiles::follow_documents);
    connect(editor, &QWidget::windowTitleChanged, this, &JournalFiles::follow_documents);
    editor->installEventFilter(this);
    // Asked before the editor asks its own question.
    mClose = close_journal_action(mEditor);
    if (mClose) {
        disconnect(mClose, &QAction::triggered, mEditor, nullptr);
        connect(mClose, &QAction::triggered, this, [this] {
            if (mEditor && may_close(mTabs->currentWidget()))
                mEditor->fileClose();
        });
    }
    disconnect(mTabs, &QTabWidget::tabCloseRequested, editor, nullptr);
    connect(mTabs, &QTabWidget::tabCloseRequested, this, [this](int tab) {
        if (may_close(mTabs->widget(tab)))
            mEditor->close_tab(tab);
    });
    follow_documents();
}

JournalFiles::~JournalFiles()
{
    for (const Watched& watched : std::as_const(mWatched))
        watched.close_boxes();
    if (!mEditor || !mTabs)
        return;
    if (mClose)
        connect(mClose, &QAction::triggered, mEditor, &JournalEditor::fileClose);
    connect(mTabs, &QTabWidget::tabCloseRequested, mEditor, &JournalEditor::close_tab);
}

void JournalFiles::check()
{
    if (!mTabs)
        return;
    follow_documents();
    for (const QPointer<Document>& document : journal_documents(mTabs)) {
        if (document)
            look_at(document, false);
    }
}

bool JournalFiles::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == JournalEditor::document_is_saved) {
        auto* const document = qobject_cast<Document*>(object);
        if (!document || may_save(document))
            return false;
        event->ignore();
        return true;
    }
    // Other events come from within the editor's end, too.
    if (event->type() == QEvent::WindowActivate && object == mEditor)
        mPatience.start();
    if (event->type() != QEvent::Close || object != mEditor)
        return false;
    bool may_close_all = true;
    for (const QPointer<Document>& document : journal_documents(mTabs))
        may_close_all = may_close(document) && may_close_all;
    if (!may_close_all)
        event->ignore();
    return !may_close_all;
}

void JournalFiles::follow_documents()
{
    for (const QPointer<Document>& document : journal_documents(mTabs))
        watch(document);
}

JournalFiles::Watched& JournalFiles::watch(Document* document)
{
    const bool is_new = !mWatched.contains(document);
    Watched& watched = mWatched[document];
    if (is_new) {
        document->installEventFilter(this);
        // It may also be that the user does not want the changes any more. Then nothing was written.
        connect(document->document(), &QTextDocument::modificationChanged, this, [this, document] {
            if (!document->document()->isModified())
                verify(document);
        });
        connect(document->document(), &QObject::destroyed, this,
                [this, document] { mWatched.take(document).close_boxes(); });
    }
    if (const QString file = journal_file(document); file != watched.file) {
        watched.close_boxes();
        watched.file = file;
        accept_state(watched);
    }
    return watched;
}

void JournalFiles::accept_state(Watched& watched)
{
    watched.state = State::of(watched.file);
    watched.fingerprint.clear();
    if (!watched.state.is_regular)
        return;
    if (const std::optional<QByteArray> bytes = content_of(watched.file))
        watched.fingerprint = fingerprint_of(*bytes);
    // One that was replaced is not watched any more.
    mWatcher.addPaths({watched.file, QFileInfo(watched.file).absolutePath()});
}

void JournalFiles::verify(Document* document)
{
    const auto known = mWatched.constFind(document);
    const bool has_new_name = known == mWatched.constEnd() || known->file != journal_file(document);
    Watched& watched = watch(document);
    const State now = State::of(watched.file);
    if (!now.exists)
        return;
    // Whether it has been written cannot be seen either.
    if (!now.is_regular) {
        complain(document, tr("it is not a regular file, and cannot be compared with the text"));
        return;
    }
    if (!has_new_name && now == watched.state)
        return;
    const std::optional<QByteArray> bytes = content_of(watched.file);
    const QByteArray text = document->toPlainText().toUtf8();
    if (bytes && !text.startsWith(*bytes)) {
        // Others have written it, too.
        look_at(document, true);
        return;
    }
    accept_state(watched);
    if (!bytes) {
        complain(document, tr("it cannot be read back"));
    } else if (bytes->size() < text.size()) {
        complain(document, tr("it has only %1 of %2 bytes").arg(bytes->size()).arg(text.size()));
    } else {
        delete watched.complaint;
        store_recent(watched.file);
    }
}

bool JournalFiles::may_save(Document* document)
{
    if (!look_at(document, true))
        return false;
    // One that is not modified does not tell that it has been saved.
    if (!document->document()->isModified()) {
        const QPointer<Document> saved = document;
        QMetaObject::invokeMethod(
            this,
            [this, saved] {
                if (saved && !saved->document()->isModified())
                    verify(saved);
            },
            Qt::QueuedConnection);
    }
    return true;
}

// One that is not modified is not written.
bool JournalFiles::may_close(QWidget* page)
{
    auto* const document = qobject_cast<Document*>(page);
    return !document || !document->document()->isModified() || look_at(document, true);
}

bool JournalFiles::look_at(Document* document, bool insist)
{
    Watched& watched = watch(document);
    const State now = State::of(watched.file);
    bool is_same = now == watched.state;
    // A file that is gone is not overwritten; it may come back in a moment.
    if (!is_same && !now.is_regular)
        return true;
    if (!is_same) {
        const QByteArray bytes = content_of(watched.file).value_or(QByteArray());
        const QString text = document->toPlainText();
        // Touched, or written with what is shown anyway.
        is_same =
            fingerprint_of(bytes) == watched.fingerprint ||
            (!document->document()->isModified() && (journal_text(bytes) == text || bytes == text.toUtf8()));
        if (is_same)
            accept_state(watched);
    }
    if (is_same) {
        delete watched.question;
        return true;
    }
    if (insist || now != watched.asked)
        ask(document, insist);
    return false;
}

void JournalFiles::complain(Document* document, const QString& reason)
{
    Watched& watched = watch(document);
    const QString message = tr("%1 does not hold the whole journal: %2").arg(shown(watched.file), reason);
    delete watched.complaint;
    auto* const box = make_box(QMessageBox::Critical, u"journalNotSaved"_s, tr("Journal Not Saved"), mEditor);
    box->addButton(QMessageBox::Ok);
    box->setText(message + u"\n\n"_s +
                 tr("The disk may be full. The journal counts as unsaved, and stays in the editor."));
    watched.complaint = box;
    box->show();
    // So that closing asks again, and the copy for a recovery stays.
    document->document()->setModified(true);
    mReport(message);
}

void JournalFiles::ask(Document* document, bool insist)
{
    Watched& watched = watch(document);
    const State asked = State::of(watched.file);
    watched.asked = asked;
    if (QDialog* const open = watched.comparison ? watched.comparison.data() : watched.question.data()) {
        if (insist) {
            open->raise();
            open->activateWindow();
        }
        return;
    }
    auto* const box =
        make_box(QMessageBox::Question, u"journalChanged"_s, tr("Journal Changed on Disk"), mEditor);
    QString text = tr("%1 was changed by another program.").arg(shown(watched.file));
    if (document->document()->isModified())
        text += u'\n' + tr("The journal has unsaved changes, too.");
    box->setText(text);
    box->setInformativeText(tr("Until you decide, the journal is not saved. Reloading can be undone."));
    QPushButton* const reload_button =
        add_button(box, u"journalReload"_s, tr("&Reload"), QMessageBox::AcceptRole);
    QPushButton* const keep_button =
        add_button(box, u"journalKeep"_s, tr("&Keep the Journal"), QMessageBox::DestructiveRole);
    QPushButton* const compare_button =
        add_button(box, u"journalCompare"_s, tr("&Compare..."), QMessageBox::ActionRole);
    box->setEscapeButton(add_button(box, u"journalLater"_s, tr("&Later"), QMessageBox::RejectRole));
    connect(reload_button, &QPushButton::clicked, this, [this, document] { reload(document); });
    connect(keep_button, &QPushButton::clicked, this, [this, document, asked] {
        Watched& kept = watch(document);
        // The user has not decided on what came behind the question.
        if (State::of(kept.file) != asked) {
            kept.question.clear();
            look_at(document, true);
            return;
        }
        accept_state(kept);
        // It is not what the file holds.
        document->document()->setModified(true);
    });
    connect(compare_button, &QPushButton::clicked, this, [this, document] { compare(document); });
    watched.question = box;
    box->show();
}

void JournalFiles::reload(Document* document)
{
    Watched& watched = watch(document);
    const std::optional<QByteArray> bytes = content_of(watched.file);
    if (!bytes) {
        mReport(tr("%1 cannot be read").arg(shown(watched.file)));
        return;
    }
    accept_state(watched);
    QTextCursor cursor(document->document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(journal_text(*bytes));
    document->document()->setModified(false);
}

void JournalFiles::compare(Document* document)
{
    Watched& watched = watch(document);
    const std::optional<QByteArray> bytes = content_of(watched.file);
    const QStringList lines = line_differences(document->toPlainText().split(u'\n'),
                                               QString::fromUtf8(bytes.value_or(QByteArray())).split(u'\n'));
    auto* const dialog = new QDialog(mEditor);
    watched.comparison = dialog;
    dialog->setObjectName(u"journalDifferences"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Differences of %1").arg(QFileInfo(watched.file).fileName()));
    auto* const view = new QPlainTextEdit(dialog);
    view->setObjectName(u"journalDifferencesText"_s);
    view->setAccessibleName(tr("Differences"));
    view->setReadOnly(true);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setFont(document->font());
    view->setPlainText(tr("- only in the journal\n+ only in the file") + u"\n\n"_s + lines.join(u'\n'));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto* const layout = new QVBoxLayout(dialog);
    layout->addWidget(view);
    layout->addWidget(buttons);
    dialog->resize(600, 400);
    // The question is still open.
    connect(dialog, &QDialog::finished, this, [this, document] {
        watch(document).comparison.clear();
        look_at(document, true);
    });
    dialog->show();
}

bool asks_before_it_closes(const JournalEditor* editor)
{
    const bool is_modified =
        std::ranges::any_of(journal_documents(journal_tabs(editor)), [](const QPlainTextEdit* document) {
            return document->document()->isModified();
        });
    return is_modified && JournalEditor::do_save_prompt();
}

} // namespace fennar
