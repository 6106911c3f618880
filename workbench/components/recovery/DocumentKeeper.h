// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/recovery/Keeper.h"

#include <QDeadlineTimer>
#include <QHash>
#include <QPointer>

#include <memory>

class JournalEditor;
class QPlainTextEdit;
class QTabWidget;

namespace fennar::recovery {

class TextCopy;

/**
 * Keeps the text of all modified documents of the journal editor, for the case that the program does not come
 * to its end.
 *
 * A copy goes as soon as its document is saved or closed, and all of them with the keeper. It stays if the
 * document has become modified again by the time that the keeper is told, since its file does not hold it.
 * The text is taken in short turns, so that nobody who types has to wait.
 */
class DocumentKeeper : public Keeper
{
    Q_OBJECT

public:
    /** As a Keeper. @param editor  whose documents are kept; stays the caller's, and may go earlier. */
    DocumentKeeper(JournalEditor* editor, const QString& root, std::chrono::milliseconds interval,
                   const Report& report);
    ~DocumentKeeper() override;

    /**
     * Opens @p kept as a document that is modified and has no file.
     *
     * The name of the file that it belonged to is the tool tip of its tab until it is saved, and is kept with
     * it again.
     */
    void open(const KeptDocument& kept);

public slots:
    void keep() override;
    bool finish() override;

private:
    struct Watched
    {
        /** Of its copy, in the folder. */
        int number = 0;
        /** Whether there is a copy, or will be once the writing has come to it. */
        bool kept = false;
        /** Whether the copy, if any, is of an older state. */
        bool changed = true;
        /** Whether a copy is being written. */
        bool writing = false;
        /** The text of the next copy, as long as it is being taken. */
        std::shared_ptr<TextCopy> taken;
        QDateTime time;
        /** The label of its tab when it was kept, which tells a new name. */
        QString label;
        /** The file that it belonged to in an earlier run, until it is saved; the tab's tool tip as well. */
        QString earlier_file;
    };

    void watch(QPlainTextEdit* document);
    void look_at(QPlainTextEdit* document);
    void go_on();
    bool take_texts(const QDeadlineTimer& deadline);
    void write_document(QPlainTextEdit* document, Watched& watched);
    void drop_copy(Watched& watched);
    void forget_origin(QPlainTextEdit* document, Watched& watched);
    void document_written(QObject* document, int number, const QString& error, bool lost);

    QPointer<JournalEditor> mEditor;
    /** The editor's; null if it has none. */
    QPointer<QTabWidget> mTabs;
    QHash<QObject*, Watched> mWatched;
    int mLastNumber = 0;
    /** Whether go_on() is to be called from the event loop. */
    bool mGoingOn = false;
};

} // namespace fennar::recovery
