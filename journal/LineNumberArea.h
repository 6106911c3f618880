// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QWidget>

class JournalDocument;

/** The strip of line numbers at the left of a JournalDocument, which creates, places, owns and paints it. */
class LineNumberArea : public QWidget
{
    Q_OBJECT

public:
    explicit LineNumberArea(JournalDocument* document);

    /** The width that the numbers need, and height 0. */
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    JournalDocument* mDocument;
};
