// Prints how long the game window takes to start, to build and show the largest field, and to
// flood the whole largest field step by step through the event loop.
#include "ClockRandomSource.h"
#include "Common.h"
#include "FieldView.h"
#include "Flood.h"
#include "RecordingWaveOutput.h"
#include "frmMine.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int Side = 49;
constexpr int Runs = 15;

// The next build lays one bomb on the last cell; every other draw is random.
class CornerBombRandom : public RandomSource
{
public:
    void ArmCorner() { corner = true; }
    float NextUniform() override
    {
        if (!corner)
            return clock.NextUniform();
        corner = false;
        return float(Side * Side - 1) / float(Side * Side);
    }

private:
    bool corner = false;
    ClockRandomSource clock;
};

// Counts the paints of a widget and ends a wait once one has happened and `done` holds.
class PaintWaiter : public QObject
{
public:
    PaintWaiter(QWidget *widget, std::function<bool()> done) : done(std::move(done))
    {
        widget->installEventFilter(this);
    }

    // Runs the event loop until a paint has happened after `done` became true.
    void Wait()
    {
        waiting = true;
        loop.exec();
        waiting = false;
    }

    int Paints = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            ++Paints;
            if (waiting && done())
                QTimer::singleShot(0, &loop, &QEventLoop::quit);
        }
        return false;
    }

private:
    std::function<bool()> done;
    QEventLoop loop;
    bool waiting = false;
};

// Adds up the time spent handling two kinds of event: window repaints (painting the dirty
// cells and handing the picture to the display) and the flood's step timer.
class TimingApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        qint64 *total = nullptr;
        if (event->type() == QEvent::UpdateRequest)
            total = &RepaintNs;
        else if (event->type() == QEvent::Timer &&
                 receiver->objectName() == QLatin1String("floodTimer"))
            total = &StepNs;
        if (!total)
            return QApplication::notify(receiver, event);
        QElapsedTimer timer;
        timer.start();
        const bool result = QApplication::notify(receiver, event);
        *total += timer.nsecsElapsed();
        return result;
    }

    qint64 RepaintNs = 0;
    qint64 StepNs = 0;
};

double Milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void UseLargestField(int bombs)
{
    Common::Level = Common::LevelCustom;
    Common::FieldX = Side;
    Common::FieldY = Side;
    Common::Bombs = bombs;
}

} // namespace

int main(int argc, char *argv[])
{
    // Never touch the player's own settings.
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    TimingApplication app(argc, argv);
    std::printf("platform: %s\n", qPrintable(QGuiApplication::platformName()));

    RecordingWaveOutput sound;
    CornerBombRandom random;
    QElapsedTimer timer;
    timer.start();
    frmMine window(sound, random);
    FieldView *field = window.findChild<FieldView *>(QStringLiteral("field"));
    PaintWaiter startPaint(field, [] { return true; });
    window.Form_Load();
    startPaint.Wait();
    std::printf("start-up to first painted window: %.2f ms (goal 300)\n", Milliseconds(timer));

    std::vector<double> builds;
    std::vector<double> buildsPainted;
    UseLargestField(Side * Side / 5 - 1);
    for (int run = 0; run < Runs; ++run) {
        timer.restart();
        window.DrawField();
        builds.push_back(Milliseconds(timer));
        field->repaint();
        buildsPainted.push_back(Milliseconds(timer));
    }
    std::printf("49x49 DrawField with %d bombs: median %.2f ms\n", Common::Bombs, Median(builds));
    std::printf("49x49 DrawField + first paint of the field: median %.2f ms (goal 5)\n",
                Median(buildsPainted));

    // The model alone: the whole walk without a window.
    std::vector<double> walks;
    int steps = 0;
    for (int run = 0; run < Runs; ++run) {
        UseLargestField(1);
        random.ArmCorner();
        window.DrawField();
        Minefield cells = window.Field();
        timer.restart();
        Flood flood(1, 1);
        for (steps = 0; !flood.Finished(); ++steps)
            flood.Step(cells);
        walks.push_back(Milliseconds(timer));
    }
    std::printf("flood walk alone (no window), %d steps: median %.3f ms\n", steps, Median(walks));

    std::vector<double> floods;
    std::vector<int> paints;
    std::vector<double> repaintShares;
    std::vector<double> stepShares;
    for (int run = 0; run < Runs; ++run) {
        UseLargestField(1);
        random.ArmCorner();
        window.mnuProg_Click(0);
        window.activateWindow();
        field->repaint();
        PaintWaiter flooded(field, [&window] { return !window.Flooding(); });
        app.RepaintNs = 0;
        app.StepNs = 0;
        timer.restart();
        window.btn_MouseDown(1, Qt::LeftButton);
        flooded.Wait();
        floods.push_back(Milliseconds(timer));
        repaintShares.push_back(double(app.RepaintNs) / 1e6);
        stepShares.push_back(double(app.StepNs) / 1e6);
        paints.push_back(flooded.Paints);
        window.mnuProg_Click(1);
    }
    std::printf("whole-field flood, one empty cell per event-loop turn, until the last cell is "
                "painted: median %.2f ms (goal 40), %d paints, %.1f us per step\n",
                Median(floods), paints[paints.size() / 2], 1000.0 * Median(floods) / steps);
    std::printf("  of which repainting and handing the picture to the display: %.2f ms, flood "
                "steps: %.2f ms, the rest is the event loop itself\n",
                Median(repaintShares), Median(stepShares));
    return 0;
}
