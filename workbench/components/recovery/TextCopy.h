// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QPointer>
#include <QString>

class QTextDocument;

namespace fennar::recovery {

/**
 * A copy of the text of a document, taken bit by bit, so that a long one does not hold the user up.
 *
 * What is changed meanwhile is changed in the copy as well: once it is complete, it is the text of that
 * moment. It is then no longer of use but to be read.
 */
class TextCopy : public QObject
{
    Q_OBJECT

public:
    /** @param document  stays the caller's. If it goes, the copy never becomes complete. */
    explicit TextCopy(QTextDocument* document);

    /** Goes on until all is copied or @p deadline has come; a bit is copied in any case. Returns whether all
     * is. */
    bool advance(const QDeadlineTimer& deadline);
    /** The text, as QTextDocument::toRawText() gives it, up to where it is copied. */
    const QString& text() const { return mText; }

private:
    void follow(int from, int removed, int added);

    QPointer<QTextDocument> mDocument;
    QString mText;
};

} // namespace fennar::recovery
