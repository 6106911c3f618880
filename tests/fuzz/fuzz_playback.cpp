// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Plays whatever the fuzzer comes up with as a journal that comes from another program.

#include "fuzz/CommandSession.h"
#include "fuzz/fuzz_target.h"
#include "workbench/sdk/core/commands/Playback.h"

#include <QBuffer>
#include <QStringDecoder>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** The lines that a journal has, each without its end. */
QStringList lines_of(const QString& text)
{
    QStringList lines = text.split(u'\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    for (QString& line : lines) {
        if (line.endsWith(u'\r'))
            line.chop(1);
    }
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const MemoryBound bound(size);
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    CommandSession session;
    Playback playback(session.interpreter());
    QStringList echoed;
    QStringList scripts;
    playback.set_echo([&echoed](const QString& line) { echoed << line; });
    playback.set_python_hook([&scripts](const Playback::PythonScript& script) {
        scripts << script.source;
        return true;
    });
    playback.set_hints(true);
    const Playback::Outcome outcome = playback.play_device(device, u"fuzz.jou"_s);

    expect((outcome == Playback::Outcome::Failed) == !session.errors().isEmpty(), "what fails says so");
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    if (decoder.hasError() || bytes.contains('\0')) {
        expect(outcome == Playback::Outcome::Failed && echoed.isEmpty() && scripts.isEmpty(),
               "what is no text is not played");
    } else if (Playback::is_python(text)) {
        expect(echoed.isEmpty() && scripts == QStringList(text), "a script is run as a whole");
    } else {
        const QStringList lines = lines_of(text);
        expect(echoed == lines.first(std::min(echoed.size(), lines.size())), "lines are shown as they stand");
        expect(outcome == Playback::Outcome::Failed || echoed.size() == lines.size(),
               "a journal is played to its end");
    }
    return 0;
}
