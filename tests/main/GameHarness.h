#pragma once

#include "ClockRandomSource.h"
#include "Common.h"
#include "DigitDisplay.h"
#include "FieldView.h"
#include "RecordingWaveOutput.h"
#include "frmMine.h"

#include <QApplication>
#include <QFile>
#include <QMenu>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <utility>

// The settings file of the test run, in a folder of its own: a test never reads or writes the
// player's settings, however it is started.
inline const QString IniPath = [] {
    static QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    return folder.path() + "/Velkaro/Velkaro.ini";
}();

// One game window as a player meets it: started with no settings file, sounds and beeps
// recorded, and bombs laid from board pictures (other builds draw from a fixed seed).
struct GameHarness : RandomSource
{
    struct Window : frmMine
    {
        using frmMine::frmMine;
        void Beep() override { ++Beeps; }
        int Beeps = 0;
    };

    explicit GameHarness(const QString &board = {}, bool soundOn = false)
    {
        QFile::remove(IniPath);
        window.Form_Load();
        if (soundOn)
            window.mnuProg_Click(2);
        if (!board.isEmpty())
            NewGame(board);
    }

    float NextUniform() override
    {
        return draws.isEmpty() ? fallback.NextUniform() : draws.takeFirst();
    }

    // Starts a game on the board picture (rows split by '\n', '*' a bomb) on the custom level
    // of the picture's size, or on the preset given that has that size and bomb count.
    void NewGame(const QString &picture, int level = Common::LevelCustom)
    {
        board = picture;
        const QString cells = QString(picture).remove(u'\n');
        for (int i = 0; i < cells.size(); ++i) {
            if (cells[i] == u'*') // u * N + 1 rounds to cell i + 1
                draws.append(float(i) / float(cells.size()));
        }
        Common::FieldY = int(picture.count(u'\n')) + 1;
        Common::FieldX = int(cells.size()) / Common::FieldY;
        Common::Bombs = int(cells.count(u'*'));
        Common::Level = level;
        window.mnuProg_Click(0);
    }

    // Plays moves split by blanks, each to the end of any flood it starts: "L3,4", "M3,4" and
    // "R3,4" press and release that button on column 3, row 4; "H3,4" holds the left button
    // down there; "T9" lets 9 seconds pass; "N" starts a new game on the
    // last board and "A" aborts.
    void Play(const QString &moves)
    {
        const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton};
        for (const QString &move : moves.split(u' ')) {
            const QStringList numbers = move.mid(1).split(u',');
            const int x = numbers[0].toInt(), y = numbers.value(1).toInt();
            if (const auto button = QStringLiteral("LMR").indexOf(move[0]); button >= 0)
                Press(x, y, buttons[button]);
            else if (move[0] == u'H')
                window.btn_MouseDown(At(x, y), Qt::LeftButton);
            else if (move[0] == u'T')
                Ticks(x);
            else if (move == u'A')
                window.mnuProg_Click(1);
            else
                NewGame(board);
            while (window.Flooding())
                QCoreApplication::processEvents();
        }
    }

    // Cells by column x and row y, 1-based.
    int At(int x, int y) const { return window.Field().Idx2Vect(x, y); }
    void Press(int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        window.btn_MouseDown(At(x, y), button);
        window.btn_MouseUp(At(x, y), button);
    }
    void Ticks(int count)
    {
        for (int tick = 0; tick < count; ++tick)
            window.Timer_Timer();
    }

    // From now on every modal dialog that opens is handed to `answer`, which must close it;
    // once for each harness.
    void AnswerDialogs(const std::function<void(QWidget *)> &answer)
    {
        QObject::connect(&dialogWatch, &QTimer::timeout, [answer] {
            if (QWidget *dialog = QApplication::activeModalWidget())
                answer(dialog);
        });
        dialogWatch.start(10);
    }

    FieldView *Field() const { return window.findChild<FieldView *>("field"); }
    // Every cell, one character each and rows split by '\n': '#' covered, 'F' flag, '?' question
    // mark, '.' empty, '1'..'8' numbers, '*' bomb, 'X' exploded, 'x' wrong flag.
    QString Pictures() const
    {
        QStringList rows(Field()->FieldY());
        for (int i = 0; i < Field()->FieldX() * Field()->FieldY(); ++i)
            rows[i / Field()->FieldX()] +=
                QStringLiteral(".12345678*Xx#F?")[Field()->Pic(i + 1) - 1];
        return rows.join(u'\n');
    }
    bool ClockRunning() const { return window.findChild<QTimer *>("Timer")->isActive(); }
    int Face() const { return window.ShownFace(); }
    // The panel and the Level menu, as "07 300 face4 ticking levels-off".
    QString Status() const
    {
        return QStringLiteral("%1 %2 face%3 %4 levels-%5")
            .arg(window.findChild<DigitDisplay *>("pBomb")->Digits(),
                 window.findChild<DigitDisplay *>("pT")->Digits(), QString::number(Face()),
                 ClockRunning() ? "ticking" : "stopped",
                 window.findChild<QMenu *>("mnuLev")->menuAction()->isEnabled() ? "on" : "off");
    }
    // The sounds played since the last call.
    QList<int> Sounds() { return std::exchange(sound.Played, {}); }

    QString board;
    QList<float> draws;
    ClockRandomSource fallback{1u};
    RecordingWaveOutput sound;
    Window window{sound, *this};
    QTimer dialogWatch;
};
