#pragma once

#include "ClockRandomSource.h"
#include "Common.h"
#include "DigitDisplay.h"
#include "FieldView.h"
#include "RecordingWaveOutput.h"
#include "frmMine.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <utility>

// The settings file of the test run, in a folder of its own: a test never reads or writes the
// player's settings, however it is started.
inline const QString IniPath = [] {
    static QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    return folder.path() + "/Velkaro/Velkaro.ini";
}();

// One game window as a player meets it: started with no settings file, sounds recorded, and
// bombs laid from board pictures (other builds draw from a fixed seed, so they still end).
struct GameHarness : RandomSource
{
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

    // Cells by column x and row y, 1-based.
    int At(int x, int y) const { return window.Field().Idx2Vect(x, y); }
    int Pic(int x, int y) const { return Field()->Pic(At(x, y)); }
    void Press(int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        window.btn_MouseDown(At(x, y), button);
        window.btn_MouseUp(At(x, y), button);
    }
    void Right(std::initializer_list<QPoint> cells)
    {
        for (const QPoint cell : cells)
            Press(cell.x(), cell.y(), Qt::RightButton);
    }
    void Ticks(int count)
    {
        for (int tick = 0; tick < count; ++tick)
            window.Timer_Timer();
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
    QString BombCounter() const { return window.findChild<DigitDisplay *>("pBomb")->Digits(); }
    QString Clock() const { return window.findChild<DigitDisplay *>("pT")->Digits(); }
    bool ClockRunning() const { return window.findChild<QTimer *>("Timer")->isActive(); }
    int Face() const { return window.ShownFace(); }
    // The sounds played since the last call.
    QList<int> Sounds() { return std::exchange(sound.Played, {}); }

    QList<float> draws;
    ClockRandomSource fallback{1u};
    RecordingWaveOutput sound;
    frmMine window{sound, *this};
};
