#include "AccessibleFactory.h"
#include "ClockRandomSource.h"
#include "SdlWaveOutput.h"
#include "frmMine.h"

#include <QAccessible>
#include <QApplication>

#include <cstdio>

namespace {

// Without a display Qt would abort with a toolkit error; say what is needed instead.
bool hasDesktopSession()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
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
    window.Form_Load();
    return app.exec();
}
