#include "AccessibleFactory.h"
#include "ClockRandomSource.h"
#include "SdlWaveOutput.h"
#include "TerminationSignals.h"
#include "frmMine.h"

#include <QAccessible>
#include <QApplication>

#include <cstdio>
#include <cstdlib>

namespace {

// Without a display Qt would abort with a toolkit error; say what is needed instead.
bool hasDesktopSession()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

// The window whose settings are still to be saved when the program ends through exit().
frmMine *unsavedWindow = nullptr;

// When the X server goes away, Qt's xcb platform ends the program with exit() from the event
// loop, on this thread. exit() does not unwind main, so the window still exists, and the save
// touches only files and the window's own variables, never the lost display.
void saveSettingsAtExit()
{
    if (unsavedWindow)
        unsavedWindow->Form_Unload();
}

} // namespace

int main(int argc, char *argv[])
{
    if (!hasDesktopSession()) {
        std::fputs("Velkaro needs a desktop session: no display was found.\n"
                   "To take a look on a machine without one, run it under xvfb-run.\n",
                   stderr);
        return 1;
    }
    QApplication app(argc, argv);
    QAccessible::installFactory(CreateGameAccessible);
    SdlWaveOutput sound;
    ClockRandomSource random;
    frmMine window(sound, random);
    // A termination signal and the end of the session (logout, shutdown) end the game as the
    // Exit command does: the settings are saved once, then the program ends.
    TerminationSignals terminationSignals;
    const auto exitGame = [&window] { window.mnuProg_Click(4); };
    QObject::connect(&terminationSignals, &TerminationSignals::Received, &window, exitGame);
    QObject::connect(&app, &QGuiApplication::commitDataRequest, &window, exitGame);
    unsavedWindow = &window;
    std::atexit(saveSettingsAtExit);
    window.Form_Load();
    const int status = app.exec();
    // The event loop may also end without the window being closed, as when the session
    // manager tells the program to quit.
    window.Form_Unload();
    unsavedWindow = nullptr;
    return status;
}
