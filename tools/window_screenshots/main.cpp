// Renders the game window in play on each preset, lost and won, to PNG files in a folder. The
// bombs come from a fixed seed, so the same pictures come out every time.
//   QT_QPA_PLATFORM=offscreen window_screenshots docs
#include "ClockRandomSource.h"
#include "Common.h"
#include "RecordingWaveOutput.h"
#include "frmMine.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTemporaryDir>

#include <cstdio>

namespace {

// Cell indexes of the field, row by row, that satisfy `wanted`.
template<class Predicate> QList<int> CellsWhere(const frmMine &window, Predicate wanted)
{
    const Minefield &field = window.Field();
    QList<int> found;
    for (int y = 1; y <= field.FieldY(); ++y) {
        for (int x = 1; x <= field.FieldX(); ++x) {
            if (wanted(field.Cells(x, y)))
                found.append(field.Idx2Vect(x, y));
        }
    }
    return found;
}

void Press(frmMine &window, int index, Qt::MouseButton button)
{
    window.btn_MouseDown(index, button);
    window.btn_MouseUp(index, button);
    while (window.Flooding())
        QCoreApplication::processEvents();
}

// A game some way in: the largest empty region opened, a flag on the first bomb, some seconds
// gone.
void PlayAWhile(frmMine &window, int level)
{
    Common::Level = level;
    window.mnuProg_Click(0);
    const QList<int> empty = CellsWhere(window, [](const Cell &c) { return !c.Bomb && !c.Count; });
    Press(window, empty.at(empty.size() / 2), Qt::LeftButton);
    Press(window, CellsWhere(window, [](const Cell &c) { return c.Bomb; }).first(),
          Qt::RightButton);
    for (int second = 0; second < 23; ++second)
        window.Timer_Timer();
}

bool Save(frmMine &window, const QDir &folder, const char *name)
{
    const QString path = folder.filePath(QLatin1String(name));
    const bool saved = window.grab().save(path);
    std::printf("%s %s\n", saved ? "wrote" : "could not write", qPrintable(path));
    return saved;
}

} // namespace

int main(int argc, char *argv[])
{
    QTemporaryDir config; // never the player's own settings
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    QApplication app(argc, argv);
    if (argc != 2) {
        std::fputs("usage: window_screenshots <folder>\n", stderr);
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));

    RecordingWaveOutput sound;
    ClockRandomSource random(20261123);
    frmMine window(sound, random);
    window.Form_Load();

    bool saved = true;
    const char *names[] = {"main-easy.png", "main-medium.png", "main-hard.png"};
    for (int level = Common::LevelEasy; level <= Common::LevelHard; ++level) {
        PlayAWhile(window, level);
        saved &= Save(window, folder, names[level]);
    }

    PlayAWhile(window, Common::LevelEasy);
    Press(window, CellsWhere(window, [](const Cell &c) { return c.Bomb && !c.Flagged; }).last(),
          Qt::LeftButton);
    saved &= Save(window, folder, "main-lost.png");

    // No hall of fame dialog: every stored time is already better than any win.
    for (RecordRow &row : Common::EasyRecords)
        row.Time = QStringLiteral("0");
    PlayAWhile(window, Common::LevelEasy);
    for (int bomb : CellsWhere(window, [](const Cell &c) { return c.Bomb && !c.Flagged; }))
        Press(window, bomb, Qt::RightButton);
    saved &= Save(window, folder, "main-won.png");
    return saved ? 0 : 1;
}
