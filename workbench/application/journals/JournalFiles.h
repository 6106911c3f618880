// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArray>
#include <QDialog>
#include <QFileSystemWatcher>
#include <QHash>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <ctime>
#include <functional>
#include <optional>

class JournalEditor;
class QAction;
class QPlainTextEdit;
class QTabWidget;

namespace fennar {

/**
 * Sees to it that the journals of the editor and their files do not part unnoticed.
 *
 * After each save the file is compared with the text. A journal that is not there whole, as on a full disk,
 * counts as modified again, and the user is told. One that is there whole is among the recent ones at once.
 *
 * A file that others have changed is noticed when that happens, when the editor's window becomes the active
 * one, and before the journal is saved or closed, whoever does that. The user is then asked whether to read
 * it anew, to keep the journal, or to see how they differ; before that is answered it is not saved.
 *
 * Nothing of it is modal. GUI thread only.
 */
class JournalFiles : public QObject
{
    Q_OBJECT

public:
    /** Is given a message for the user, of one line. */
    using Report = std::function<void(const QString& text)>;

    /** @param editor  stays the caller's, and may go earlier. */
    JournalFiles(JournalEditor* editor, const Report& report);
    /** Closes the questions that are open; the editor's own entries save and close as before. */
    ~JournalFiles() override;

public slots:
    /** Looks at the files of all documents. */
    void check();

private:
    /** What is known of a file. */
    struct State
    {
        bool exists = false;
        bool is_regular = false;
        qint64 size = 0;
        /** When it was changed, in seconds, and the nanoseconds above them. */
        std::time_t seconds = 0;
        long nanoseconds = 0;
        quint64 inode = 0;

        static State of(const QString& file);
        bool operator==(const State&) const = default;
    };
    struct Watched
    {
        QString file;
        State state;
        /** Of the content that the document was read from or written to. */
        QByteArray fingerprint;
        /** The state that the user was asked about last. */
        State asked;
        QPointer<QMessageBox> question;
        QPointer<QDialog> comparison;
        QPointer<QMessageBox> complaint;

        void close_boxes() const;
    };
    using Document = QPlainTextEdit;

    bool eventFilter(QObject* object, QEvent* event) override;
    void follow_documents();
    Watched& watch(Document* document);
    /** Compares the file of a document with its text if it has been written just now. */
    void verify(Document* document);
    /**
     * Notices what others have changed. Returns false if the user has to decide first.
     *
     * @param insist  asks again what the user has put off.
     */
    bool look_at(Document* document, bool insist);
    bool may_close(QWidget* page);
    /** Answers the editor that is about to write a document. */
    bool may_save(Document* document);
    void accept_state(Watched& watched);
    void complain(Document* document, const QString& reason);
    void ask(Document* document, bool insist);
    void reload(Document* document);
    void compare(Document* document);

    QPointer<JournalEditor> mEditor;
    /** The editor's; null if it has none. */
    QPointer<QTabWidget> mTabs;
    Report mReport;
    QHash<Document*, Watched> mWatched;
    QFileSystemWatcher mWatcher;
    /** Lets a program that writes come to its end. */
    QTimer mPatience;
    /** The editor's entry that closes the document, which comes here first. */
    QPointer<QAction> mClose;
};

/** Whether the editor asks about unsaved journals before it closes. Not null. */
bool asks_before_it_closes(const JournalEditor* editor);

} // namespace fennar
