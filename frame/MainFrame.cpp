// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/MainFrame.h"

#include "console/CommandWindow.h"
#include "frame/Alive.h"
#include "frame/EventCatcher.h"
#include "frame/Ostrel.h"
#include "frame/OstrelEventFilter.h"
#include "frame/ProgressControl.h"
#include "frame/read_setting.h"
#include "frame/settings_keys.h"
#include "host/navigation/NavigationModel.h"
#include "host/navigation/NavigationReader.h"
#include "host/navigation/NavigationResourcesDelay.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/Mediator.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QPixmap>
#include <QPointer>
#include <QScreen>
#include <QSettings>
#include <QSplashScreen>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto new_event_type = QEvent::Type(1000);

// Null as well for an application without a user interface, which is of no use to the shell.
QApplication* gui_application()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance());
}

// A window that nearly fills the screen comes up maximized.
bool fits_with_room(const QSize& window, const QSize& screen)
{
    return screen.width() > window.width() + 10 && screen.height() > window.height() + 30;
}

QString navigation_directory()
{
    const bool classic = read_setting(QSettings(), settings_keys::classic_navigation, false);
    return QCoreApplication::applicationDirPath() + u"/xml"_s +
           (classic ? u"/entity-based-xml"_s : u"/action-based-xml"_s);
}

// Prints what the reader has to say, which is gone with it. The model may go at any step.
void read_navigation(const QString& directory, NavigationResources* resources, NavigationModel* model)
{
    const Alive alive(model);
    NavigationReader reader;
    reader.setResources(resources);
    if (alive)
        reader.setModel(model, nullptr, nullptr);
    if (alive)
        reader.buildNavigation(directory, u".xml"_s);
    for (const QString& message : std::as_const(reader.messages))
        Broker::command << message << u"\n"_s;
}

} // namespace

struct MainFramePrivate
{
    // Destroyed from the last to the first: the splash screen goes before the resources. Those stay until a
    // call that uses them returns.
    std::shared_ptr<NavigationResourcesDelay> resources = std::make_shared<NavigationResourcesDelay>();
    std::unique_ptr<QSplashScreen> splash;
    bool tracks = false;
    /** Ends with the private part. */
    std::shared_ptr<int> life = std::make_shared<int>();
};

MainFrame::MainFrame()
    : mPrivate(std::make_unique<MainFramePrivate>()),
      mApplication(nullptr),
      mEventCatcher(nullptr),
      mMainWindow(nullptr)
{}

MainFrame::~MainFrame() = default;

bool MainFrame::is_loaded()
{
    return mMainWindow != nullptr;
}

bool MainFrame::load_gui()
{
    if (!mPrivate) {
        qWarning("MainFrame::load_gui: a frame that has been unloaded cannot be loaded again; make another");
        return false;
    }
    // There is one window. The catcher is there as soon as its building has begun.
    if (mEventCatcher)
        return is_loaded();
    mApplication = gui_application();
    if (mApplication && !build_window())
        return false;
    const QPointer<Ostrel> window(mMainWindow);
    // Without an application there may be a second try. The framework may unload the frame at once.
    if (!std::exchange(mPrivate->tracks, true))
        Broker::instance()->add_component_tracker(this);
    return window;
}

// To be called before there is a window, whose console asks for the font. Without it the console takes what
// Qt offers. Once in an application: whenever a font comes, Qt forgets all that it has found out about fonts,
// which takes longer to find out again than a window to build.
static void add_console_font()
{
    static int font = -1;
    // The number may stand for another font in the next application.
    if (!QFontDatabase::applicationFontFamilies(font).contains(u"Inconsolata"_s))
        font = QFontDatabase::addApplicationFont(u":/ostrelgui/fonts/Inconsolata-Regular.ttf"_s);
}

// Returns whether nobody has unloaded the frame meanwhile, which may then be gone altogether.
bool MainFrame::build_window()
{
    add_console_font();
    mEventCatcher = new EventCatcher(mApplication);
    const QPointer<EventCatcher> catcher(mEventCatcher);
    auto* const window = new Ostrel(nullptr, nullptr);
    if (!catcher) {
        delete window;
        return false;
    }
    mMainWindow = window;
    const Alive alive(catcher.data(), window);
    if (fits_with_room(window->size(), QGuiApplication::primaryScreen()->geometry().size()))
        window->show();
    else
        window->showMaximized();
    if (alive)
        Broker::command.set_command_window(window->command_line());
    if (!alive)
        return false;
    const QString directory = navigation_directory();
    const std::shared_ptr<NavigationResourcesDelay> resources = mPrivate->resources;
    resources->model = window->navigation_model();
    read_navigation(directory, resources.get(), window->navigation_model());
    return bool(alive);
}

void MainFrame::unload_gui()
{
    const std::weak_ptr<int> life = mPrivate ? mPrivate->life : nullptr;
    const QPointer<Ostrel> window(mMainWindow);
    const QPointer<EventCatcher> catcher(mEventCatcher);
    Broker::instance()->remove_component_tracker(this);
    // The framework may have unloaded or deleted the frame by now, and may do so in what follows.
    std::unique_ptr<MainFramePrivate> parts;
    if (!life.expired()) {
        parts = std::move(mPrivate);
        mMainWindow = nullptr;
        mEventCatcher = nullptr;
        mApplication = nullptr;
    }
    parts.reset();
    // The framework must not print to a console that is about to go.
    if (window)
        Broker::command.set_command_window(nullptr);
    delete window.data();
    delete catcher.data();
}

void MainFrame::new_event()
{
    if (mEventCatcher && mEventCatcher->application)
        QCoreApplication::postEvent(mEventCatcher, new QEvent(new_event_type), 0);
}

void MainFrame::run_application()
{
    if (mApplication)
        QApplication::exec();
}

void MainFrame::end_application()
{
    if (mApplication)
        QCoreApplication::quit();
}

void MainFrame::start_progress_session(const char* title, int process)
{
    if (mMainWindow && mMainWindow->progress())
        mMainWindow->progress()->start_session(title, process != 0);
}

void MainFrame::update_progress_session(const char* title, int percent)
{
    if (mMainWindow && mMainWindow->progress())
        mMainWindow->progress()->update_session(title, percent);
}

void MainFrame::end_progress_session(const char* title)
{
    if (mMainWindow && mMainWindow->progress())
        mMainWindow->progress()->end_session(title);
}

void MainFrame::check_interrupt_session(const char*)
{
    if (mMainWindow && mMainWindow->progress())
        mMainWindow->mEventFilter->processEvents(true);
}

void MainFrame::set_status_text(const char* text)
{
    // The percentage follows without a blank. A "%" in the text is the bar's to interpret.
    if (mMainWindow)
        mMainWindow->progress()->set_format(QString::fromUtf8(text) + u"%p%"_s);
}

void MainFrame::enable_cancel(bool on)
{
    if (mMainWindow && mMainWindow->progress())
        mMainWindow->progress()->enable_cancel(on);
}

void MainFrame::start_splash(const char* file)
{
    const bool wanted = read_setting(QSettings(), settings_keys::splash, true);
    if (!wanted || !mPrivate || mPrivate->splash || !gui_application())
        return;
    mPrivate->splash =
        std::make_unique<QSplashScreen>(QPixmap(QString::fromUtf8(file)), Qt::WindowStaysOnTopHint);
    mPrivate->splash->show();
}

void MainFrame::show_splash_message(const char* text)
{
    if (mPrivate && mPrivate->splash)
        mPrivate->splash->showMessage(QString::fromUtf8(text), Qt::AlignBottom | Qt::AlignHCenter, Qt::white);
}

void MainFrame::finish_splash()
{
    if (!mPrivate || !mPrivate->splash)
        return;
    const std::unique_ptr<QSplashScreen> splash = std::move(mPrivate->splash);
    splash->close();
}

void MainFrame::component_loaded(const char* name)
{
    // The tracker is registered even when no window could be built, and may be told late.
    const QPointer<Ostrel> window(mMainWindow);
    const auto resources = mPrivate ? mPrivate->resources : nullptr;
    if (resources)
        resources->recheckResources();
    // The frame may be gone by now.
    if (window)
        window->component_finished_loading(name);
}
