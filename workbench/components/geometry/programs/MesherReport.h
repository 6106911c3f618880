// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace fennar::geometry {

/** Makes sense of what the mesher writes, line by line: how far it is and what the user should read. */
class MesherReport
{
public:
    struct Message
    {
        enum class Kind { Information, Warning, Error };

        Kind kind = Kind::Information;
        QString text;
    };

    /** Takes one line without its end. Returns what the engine has to say in it, if anything. */
    std::optional<Message> read(const QByteArray& line);

    /** From 0 to 100; never falls. */
    int percent() const { return mPercent; }
    /** What the mesher does now, in words; empty before the first stage. */
    const QString& stage() const { return mStage; }

private:
    void begin_stage(const QString& name);
    /** @param part  how much of the stage is done, from 0 to 1. */
    void advance(double part);

    QString mStage;
    /** The percentages at which the present stage begins and ends. */
    int mBegin = 0;
    int mEnd = 0;
    int mPercent = 0;
    bool mCountNodes = false;
    double mExpectedNodes = 1;
    /** The nodes of the volumes that are done, and of the one in work. */
    double mNodesBefore = 0;
    double mNodes = 0;
};

} // namespace fennar::geometry
