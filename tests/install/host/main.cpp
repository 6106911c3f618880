// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The least that a host can be, with the workbench's libraries behind the shell:  host TITLE
// It ends when its window is closed.

#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/host/ostrelfw/FrameworkInterpreters.h"
#include "workbench/host/ostrelfw/HostMediator.h"

#include <QApplication>

using namespace fennar;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("host"));
    PythonRuntime::start({});
    set_framework_interpreters(make_python_interpreter(PythonRuntime::framework_namespace()), nullptr);

    MainFrame frame;
    HostMediator::instance().set_exit_handler([&frame] { frame.end_application(); });
    if (!frame.load_gui())
        return 1;
    if (argc > 1)
        Ostrel::instance()->set_title(QString::fromLocal8Bit(argv[1]));
    frame.run_application();
    frame.unload_gui();

    HostMediator::instance().set_exit_handler(nullptr);
    set_framework_interpreters(nullptr, nullptr);
    PythonRuntime::stop();
    return 0;
}
