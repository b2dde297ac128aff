#include <QApplication>
#include <QMessageBox>

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
    QMessageBox::information(nullptr, QStringLiteral("Velkaro"),
                             QStringLiteral("The game window is not there yet: only the rules "
                                            "of the game are built so far."));
    return 0;
}
