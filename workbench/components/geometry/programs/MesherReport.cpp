// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/programs/MesherReport.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

struct Stage
{
    QLatin1StringView name;
    /** As messages have it; the progress bar shows it in the user's language. */
    const char* text;
    /** Where it begins, in percent of the whole. Volumes take the longest. */
    int begin;
};

constexpr Stage stages[] = {
    {"open"_L1, QT_TRANSLATE_NOOP("MesherReport", "reading the file"), 0},
    {"quality"_L1, QT_TRANSLATE_NOOP("MesherReport", "measuring"), 0},
    {"read"_L1, QT_TRANSLATE_NOOP("MesherReport", "reading the solids"), 0},
    {"1D"_L1, QT_TRANSLATE_NOOP("MesherReport", "meshing edges"), 2},
    {"2D"_L1, QT_TRANSLATE_NOOP("MesherReport", "meshing faces"), 5},
    {"3D"_L1, QT_TRANSLATE_NOOP("MesherReport", "meshing volumes"), 35},
    {"write"_L1, QT_TRANSLATE_NOOP("MesherReport", "writing"), 95},
};

} // namespace

std::optional<MesherReport::Message> MesherReport::read(const QByteArray& line)
{
    static const QRegularExpression engine_line(u"^(Info|Warning|Error)\\s*:\\s?(.*)$"_s);
    static const QRegularExpression percentage(u"^\\[\\s*(\\d+)%\\]"_s);
    // The second one is what HXT says.
    static const QRegularExpression nodes(
        u"^It\\. \\d+ - (\\d+) nodes created|^Delaunay of .* mesh\\.nvert: (\\d+)"_s);

    const QString text = QString::fromUtf8(line).trimmed();
    if (text.isEmpty())
        return std::nullopt;
    if (text.startsWith("@stage "_L1)) {
        begin_stage(text.sliced(7));
        return std::nullopt;
    }
    if (text.startsWith("@expect "_L1)) {
        mExpectedNodes = std::max(1.0, text.sliced(8).toDouble()); // in this order: "nan" becomes 1, too
        return std::nullopt;
    }
    const QRegularExpressionMatch said = engine_line.match(text);
    if (!said.hasMatch()) // not of the engine's making: of one of its libraries, or of the system's
        return Message{Message::Kind::Warning, text};
    const QString rest = said.captured(2);
    if (said.captured(1) == u"Error")
        return Message{Message::Kind::Error, rest};
    if (said.captured(1) == u"Warning")
        return Message{Message::Kind::Warning, rest};
    if (const QRegularExpressionMatch done = percentage.match(rest); done.hasMatch()) {
        if (!mCountNodes)
            advance(done.captured(1).toDouble() / 100);
        return std::nullopt;
    }
    if (const QRegularExpressionMatch created = nodes.match(rest); created.hasMatch() && mCountNodes) {
        const double count = created.captured(created.lastCapturedIndex()).toDouble();
        if (count < mNodes) // the engine counts anew for the next volume
            mNodesBefore += mNodes;
        mNodes = count;
        // Counted nodes may exceed what was expected, and optimizing follows them.
        advance(0.9 * std::min((mNodesBefore + mNodes) / mExpectedNodes, 1.0));
    }
    return Message{Message::Kind::Information, rest};
}

void MesherReport::begin_stage(const QString& name)
{
    for (std::size_t i = 0; i < std::size(stages); ++i) {
        if (stages[i].name != name)
            continue;
        mStage = QLatin1StringView(stages[i].text);
        mBegin = stages[i].begin;
        mEnd = i + 1 < std::size(stages) ? stages[i + 1].begin : 100;
        mCountNodes = name == u"3D";
        advance(0);
    }
}

void MesherReport::advance(double part)
{
    // Progress that is not a number is passed over.
    const double percent = mBegin + std::min(part, 1.0) * (mEnd - mBegin);
    if (percent > mPercent)
        mPercent = int(percent);
}

} // namespace fennar::geometry
