// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/GeometryModel.h"

#include <QAnyStringView>

#include <optional>

class CommandCall;
class CommandError;

/**
 * Reads the words of a command about files from left to right; what is wrong with one is thrown as a
 * CommandError with the word's column.
 */
class GeometryWords
{
public:
    GeometryWords(CommandCall& call, const GeometryModel& model) : mCall(call), mModel(model) {}

    /** Words that cannot name solids, since commands give them a meaning. */
    static const QStringList& keywords();
    static bool is_keyword(const QString& text) { return keywords().contains(text); }

    bool at_end() const;
    /** Which word comes next. */
    qsizetype next() const { return mNext; }
    /** Whether the next word is @p keyword. */
    bool is(QLatin1StringView keyword) const;
    /** As is(), and goes behind it if so. */
    bool take(QLatin1StringView keyword);
    /** Whether the next word is a keyword or there is none. */
    bool at_keyword() const;
    /** An error that the next word is not what can stand there. To be thrown. */
    CommandError expected(QAnyStringView what) const;

    /** Any word. */
    QString text(QAnyStringView what);
    /** An error that the word before the next one is not what can stand there. To be thrown. */
    CommandError expected_last(QAnyStringView what) const;
    /** A number from @p least to @p most. */
    double length(QAnyStringView what, double least = GeometryModel::least_length,
                  double most = GeometryModel::greatest_length);
    /** A solid by its name or id. */
    int solid();
    /** Solids up to the next keyword, at least one; "all" stands for all. None twice. */
    QList<int> solids();

private:
    CommandCall& mCall;
    const GeometryModel& mModel;
    qsizetype mNext = 1;
};
