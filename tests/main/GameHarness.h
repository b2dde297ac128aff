#pragma once

#include "ClockRandomSource.h"
#include "RandomSource.h"
#include "RecordingWaveOutput.h"
#include "frmMine.h"

#include <QList>
#include <QString>

#include <functional>

class DigitDisplay;
class FieldView;
class QAction;
class QMenu;

// Bomb draws for the board pictures of the tests. After Arm(board) the next build lays its
// bombs exactly where the picture puts a '*'; any other draw comes from a fixed-seed generator,
// so builds nobody armed (start-up, a level change) still end.
class BoardRandom : public RandomSource
{
public:
    float NextUniform() override;
    // The next build of a field of numCells cells puts its bombs on these cell indexes.
    void Arm(const QList<int> &bombIndexes, int numCells);

private:
    QList<float> draws;
    ClockRandomSource fallback{1u};
};

// One game window as a player meets it: started with fresh settings, sound recorded.
struct GameHarness
{
    GameHarness();

    // Starts a new game on the field of the picture (rows separated by '\n', '*' a bomb, any
    // other character a safe cell): a 9 x 9 board with 10 bombs is played on Easy, any other
    // on the custom level with the picture's size and bomb count.
    void NewGame(const char *board);

    // The cell index of column x, row y (1-based) on the field in play.
    int At(int x, int y) const;
    void LeftPress(int index);
    void RightPress(int index);
    int Pic(int index) const;
    // Every cell's picture, one character each, rows separated by '\n': '#' covered, 'F' flag,
    // '?' question mark, '.' empty, '1'..'8' numbers, '*' bomb, 'X' exploded, 'x' wrong flag.
    QString Pictures() const;
    QString BombCounter() const;
    QString Clock() const;

    // The one-second timer runs: a game is in play.
    bool ClockRunning() const;
    FieldView *Field() const;
    QAction *Action(const char *name) const;
    QMenu *Menu(const char *name) const;

    RecordingWaveOutput sound;
    BoardRandom random;
    frmMine window;
};

// Seven bombs down the left edge of a 7 x 7 custom field; the rest of the field is one empty
// region with a column of numbers beside the bombs.
extern const char *const LeftWall;

// The captions of menu items, in order.
QStringList Texts(const QList<QAction *> &actions);

// Runs `act` on the modal dialog of class `className` as soon as it is open, from inside the
// event loop of its exec().
void WhenModal(const char *className, std::function<void(QWidget *)> act);

// Removes the settings file of the test run, so the next start-up finds none.
void ForgetSettings();
// The settings file of the test run.
QString SettingsFilePath();
