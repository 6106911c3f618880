// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArray>
#include <QTranslator>

/** While it lives, texts of one translation context come out as "<text>"; all others stay as they are. */
class MarkingTranslator : public QTranslator
{
    Q_OBJECT

public:
    /** Installs itself, and fails the program if that cannot be done. */
    explicit MarkingTranslator(const char* context);
    ~MarkingTranslator() override;

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char* comment, int n) const override;

private:
    QByteArray mContext;
};
