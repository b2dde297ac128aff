#pragma once

#include "Flood.h"
#include "Minefield.h"

#include <QMainWindow>

#include <array>
#include <vector>

class DigitDisplay;
class FieldView;
class QDialog;
class QMenu;
class QTimer;
class RandomSource;
class SmileButton;
class WrappingMenuBar;
class WaveOutput;

// The game window: the field with the bomb counter, the smiley button and the countdown clock
// above it, and the menus. It owns the game in play; the field parameters, the language and
// the halls of fame live in Common.
//
// Everything runs on the user-interface thread. A flood opening advances one empty cell per
// turn of the event loop, so presses, clock ticks and menu commands are handled while it runs;
// the field is never rebuilt under a running flood (see RequestField).
class frmMine : public QMainWindow
{
    Q_OBJECT

public:
    // The sounds go to `sound` and the bombs are drawn from `random`; both must outlive the
    // window. The window is empty until Form_Load.
    frmMine(WaveOutput &sound, RandomSource &random, QWidget *parent = nullptr);

    // Start-up: reads the settings, shows the window in Italian and builds the first field of
    // the stored level. No game runs until New game.
    void Form_Load();
    // Shutdown: saves the settings and records, once however often the program's ending
    // reaches it (close box, Exit, a signal, the end of the session or of the display).
    void Form_Unload();

    // Builds a new field of Common::Level (its preset first) with every cell covered, the
    // normal face and both counters at 0, and fits the window to it. Neither starts nor stops
    // a game. Never called while a flood runs.
    void DrawField();

    // A press or release of a mouse button on cell `index` (1..NumCells).
    void btn_MouseDown(int index, Qt::MouseButton button);
    void btn_MouseUp(int index, Qt::MouseButton button);

    // One second of the countdown.
    void Timer_Timer();

    // The ends of a game. thisIdx is the cell whose bomb went off, 0 with skip when none did.
    void Victory();
    void LostGame(int thisIdx, bool skip);

    // Game menu items 0..4: New game, Abort, Sound, Hall of fame, Exit.
    void mnuProg_Click(int index);
    // Level menu items 0..3: Easy, Medium, Hard, Custom.
    void mnuLevel_Click(int index);
    void mnuWho_Click();
    void mnuLang_Click();
    void btnSmile_Click();
    // Shift+Ctrl+F12, with or without Alt, shows or hides the Debug menu and beeps. Returns
    // whether the key was that combination.
    bool Form_KeyDown(int key, Qt::KeyboardModifiers modifiers);

    void DisplayBombs(int v);
    void DisplayTime(int v); // 0 <= v <= 999
    void Smile(int face);    // 1 won, 2 lost, 3 button down, 4 normal
    void SetPic(int i, int p);
    void PlayWave(int id);

    // What the window shows and does, for tests and benchmarks.
    int ShownFace() const;
    bool Flooding() const { return !floods.empty(); }
    const Minefield &Field() const { return Cells; }

protected:
    // The cheat key's system beep. Virtual only so that a test can hear it: the offscreen
    // platform the tests run on swallows QApplication::beep().
    virtual void Beep();
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    // What a command asks of the field. A request made while a flood runs waits until the last
    // flood has ended, and one turn more so that its last cells are painted, and is then carried
    // out once: a later request joins an earlier one (Exit over New game over a plain rebuild),
    // and the level in force at that moment is built. A press in between starts a new flood
    // and the request waits for that one too.
    enum class FieldRequest
    {
        None,
        Rebuild,
        NewGame,
        Exit
    };

    void BuildMenus();
    void BuildPanel();
    void FitToField();
    // Fits the window to its client area and the menu bar to its width.
    void FitWindow();
    void RequestField(FieldRequest request);
    void CarryOut(FieldRequest request);
    void StartGame();
    void Exit();
    void SetLevelMenuEnabled(bool enabled);
    // Keeps the sound device open while a game runs with sound on, so that no press waits for
    // it to open; at rest it closes once the last sound has ended.
    void HoldSoundDevice();
    // Shows a dialog modally and waits until it has closed; it deletes itself.
    void ShowModal(QDialog *dialog);

    // Floods: the newest one advances first; each step paints the cells it opened.
    void ReveilBlanks(int x, int y);
    void StepFlood();

    // Spoken on the current cell of the field: a cell's new mark with the bombs left, and on
    // the player's request the bomb counter and the clock as they show now.
    void AnnounceMark(int picture);
    void AnnounceCounters();

    WaveOutput &waveOutput;
    RandomSource &random;

    Minefield Cells;
    int FlagsLeft = 0;
    int BombsLeft = 0;
    int TimeLeft = 0;
    bool Playing = false;
    bool SoundOn = false;

    std::vector<Flood> floods;
    // Cells opened by the floods in progress, announced when the last one ends.
    int cellsFlooded = 0;
    FieldRequest pendingRequest = FieldRequest::None;
    // Dialogs open now. A waiting field request is not carried out under one: the handler that
    // opened it resumes when it closes and must find the game it left.
    int modalDepth = 0;
    bool settingsWritten = false;

    QTimer *Timer;
    QTimer *floodTimer;

    QWidget *client;
    QWidget *box;
    DigitDisplay *pBomb;
    SmileButton *btnSmile;
    DigitDisplay *pT;
    FieldView *field;

    WrappingMenuBar *menus;
    QMenu *mnuGame;
    std::array<QAction *, 5> mnuProg;
    QMenu *mnuLev;
    std::array<QAction *, 4> mnuLevel;
    QMenu *mnuAbout;
    QAction *mnuWho;
    QMenu *mnudbg;
    std::array<QAction *, 2> mnuDebug;
    QAction *mnuLang;
};
