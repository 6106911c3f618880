// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/model/GmshSession.h"

#include <clocale>
#include <csignal>
#include <gmsh.h>
#include <string>
#include <vector>

namespace {

/** Puts back what belongs to the whole process, whatever the engine and its libraries do to it meanwhile. */
class ProcessState
{
public:
    ProcessState() : mLocale(std::setlocale(LC_ALL, nullptr)) { sigaction(SIGINT, nullptr, &mInterrupt); }
    ~ProcessState()
    {
        std::setlocale(LC_ALL, mLocale.c_str());
        sigaction(SIGINT, &mInterrupt, nullptr);
    }
    ProcessState(const ProcessState&) = delete;
    ProcessState& operator=(const ProcessState&) = delete;

private:
    std::string mLocale;
    struct sigaction mInterrupt = {};
};

} // namespace

GmshSession::GmshSession()
{
    const ProcessState state;
    gmsh::initialize(0, nullptr, false);
    gmsh::option::setNumber("General.Terminal", 0);
    gmsh::option::setNumber("General.Verbosity", 2); // warnings and errors; the rest would only pile up
    // Nobody relies on the engine's numbers, and keeping them doubles what a union leaves untouched.
    gmsh::option::setNumber("Geometry.OCCBooleanPreserveNumbering", 0);
    gmsh::logger::start();
}

GmshSession::~GmshSession()
{
    const ProcessState state;
    gmsh::logger::stop();
    gmsh::finalize();
}

QStringList GmshSession::take_messages()
{
    std::vector<std::string> lines;
    gmsh::logger::get(lines);
    if (lines.empty())
        return {};
    // Nothing else empties the engine's list.
    gmsh::logger::stop();
    gmsh::logger::start();
    QStringList messages;
    for (const std::string& line : lines)
        messages << QString::fromStdString(line);
    return messages;
}
