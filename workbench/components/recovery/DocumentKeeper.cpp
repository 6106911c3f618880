// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/recovery/DocumentKeeper.h"

#include "journal/JournalEditor.h"
#include "workbench/components/recovery/TextCopy.h"
#include "workbench/sdk/component/journal_documents.h"

#include <QDir>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTextDocument>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace fennar::recovery {

namespace {

/** How long the user's input waits, in milliseconds, while texts are taken. */
constexpr auto turn = 5ms;

/** The label of a tab without the mark of unsaved changes. */
QString label_of(const QTabWidget* tabs, int tab)
{
    const QString label = tabs->tabText(tab);
    return label.startsWith("* "_L1) ? label.sliced(2) : label;
}

} // namespace

DocumentKeeper::DocumentKeeper(JournalEditor* editor, const QString& root, std::chrono::milliseconds interval,
                               const Report& report)
    : Keeper(root, interval, report), mEditor(editor), mTabs(journal_tabs(editor))
{}

DocumentKeeper::~DocumentKeeper()
{
    for (auto one = mWatched.begin(); mTabs && one != mWatched.end(); ++one)
        forget_origin(static_cast<QPlainTextEdit*>(one.key()), *one);
}

void DocumentKeeper::open(const KeptDocument& kept)
{
    if (!mEditor || !mTabs)
        return;
    mEditor->add_document(kept.text);
    auto* document = qobject_cast<QPlainTextEdit*>(mTabs->currentWidget());
    if (!document)
        return;
    // The editor takes a blank text for one that need not be saved.
    document->document()->setModified(true);
    watch(document);
    Watched& watched = mWatched[document];
    watched.earlier_file = kept.file;
    watched.time = kept.changed;
    mTabs->setTabToolTip(mTabs->currentIndex(), QDir::toNativeSeparators(kept.file));
}

void DocumentKeeper::keep()
{
    if (!mTabs)
        return;
    QSet<QObject*> shown;
    for (QPlainTextEdit* document : journal_documents(mTabs)) {
        shown.insert(document);
        if (!document->document()->isModified() && !mWatched.contains(document))
            continue;
        watch(document);
        look_at(document);
    }
    // A tab that was closed takes its document out of the tabs, not always out of the world.
    for (auto one = mWatched.begin(); one != mWatched.end(); ++one) {
        if (!shown.contains(one.key()))
            drop_copy(*one);
    }
    go_on();
}

bool DocumentKeeper::finish()
{
    take_texts(QDeadlineTimer(QDeadlineTimer::Forever));
    return Keeper::finish();
}

void DocumentKeeper::watch(QPlainTextEdit* document)
{
    if (mWatched.contains(document))
        return;
    Watched& watched = mWatched[document];
    watched.number = ++mLastNumber;
    watched.time = QDateTime::currentDateTimeUtc();
    connect(document->document(), &QTextDocument::contentsChanged, this, [this, document] {
        Watched& own = mWatched[document];
        own.changed = true;
        own.time = QDateTime::currentDateTimeUtc();
    });
    connect(document->document(), &QTextDocument::modificationChanged, this, [this, document](bool modified) {
        Watched& own = mWatched[document];
        own.changed = true;
        // Whoever was told before may have found that it was not written whole.
        if (modified || document->document()->isModified())
            return;
        drop_copy(own);
        if (mTabs)
            forget_origin(document, own);
    });
    // Its text goes before it does, and must not be asked for any more.
    connect(document->document(), &QObject::destroyed, this, [this, document] {
        Watched gone = mWatched.take(document);
        drop_copy(gone);
    });
}

void DocumentKeeper::look_at(QPlainTextEdit* document)
{
    Watched& watched = mWatched[document];
    if (!document->document()->isModified()) {
        drop_copy(watched);
        return;
    }
    // A disk that does not keep up is not given more to do.
    if (watched.writing || watched.taken)
        return;
    if (watched.changed || watched.label != label_of(mTabs, mTabs->indexOf(document)))
        watched.taken = std::make_shared<TextCopy>(document->document());
}

void DocumentKeeper::go_on()
{
    mGoingOn = !take_texts(QDeadlineTimer(turn));
    if (mGoingOn)
        QTimer::singleShot(0, this, [this] {
            if (mGoingOn)
                go_on();
        });
}

// Returns whether there is no more to take.
bool DocumentKeeper::take_texts(const QDeadlineTimer& deadline)
{
    bool complete = true;
    for (auto one = mWatched.begin(); one != mWatched.end(); ++one) {
        if (!one->taken)
            continue;
        if (!complete || !one->taken->advance(deadline))
            complete = false;
        else
            write_document(static_cast<QPlainTextEdit*>(one.key()), *one);
    }
    return complete;
}

void DocumentKeeper::write_document(QPlainTextEdit* document, Watched& watched)
{
    KeptDocument copy{{}, watched.time, watched.taken->text()};
    watched.taken.reset();
    const int tab = mTabs ? mTabs->indexOf(document) : -1;
    if (tab < 0)
        return;
    copy.file = journal_file(document);
    if (copy.file.isEmpty())
        copy.file = watched.earlier_file;
    watched.changed = false;
    watched.label = label_of(mTabs, tab);
    watched.writing = true;
    watched.kept = true;
    write(watched.number, std::move(copy),
          [this, document = static_cast<QObject*>(document), number = watched.number](
              const QString& error, bool lost) { document_written(document, number, error, lost); });
}

void DocumentKeeper::document_written(QObject* document, int number, const QString& error, bool lost)
{
    if (lost) {
        for (Watched& one : mWatched)
            one.changed = one.changed || !one.writing;
    }
    const auto watched = mWatched.find(document);
    // Another document may have come to the same place in memory.
    if (watched == mWatched.end() || watched->number != number)
        return;
    watched->writing = false;
    if (error.isEmpty() || !watched->kept) {
        set_written(number);
        return;
    }
    watched->changed = true;
    set_failed(number,
               tr("Unsaved journals cannot be kept for a recovery: %1. It will be tried again.").arg(error));
}

void DocumentKeeper::drop_copy(Watched& watched)
{
    watched.taken.reset();
    if (!watched.kept)
        return;
    watched.kept = false;
    watched.changed = true;
    remove(watched.number);
}

void DocumentKeeper::forget_origin(QPlainTextEdit* document, Watched& watched)
{
    if (!watched.earlier_file.isEmpty())
        mTabs->setTabToolTip(mTabs->indexOf(document), {});
    watched.earlier_file.clear();
}

} // namespace fennar::recovery
