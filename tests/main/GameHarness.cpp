#include "GameHarness.h"

#include "Common.h"
#include "DigitDisplay.h"
#include "FieldView.h"
#include "SettingsStore.h"

#include <QApplication>
#include <QFile>
#include <QMenu>
#include <QTest>
#include <QTimer>

namespace {

// Picture number 1..15 to its character in Pictures().
const QString PictureCharacters = QStringLiteral(".12345678*Xx#F?");

} // namespace

const char *const LeftWall = "*......\n"
                             "*......\n"
                             "*......\n"
                             "*......\n"
                             "*......\n"
                             "*......\n"
                             "*......";

float BoardRandom::NextUniform()
{
    if (draws.isEmpty())
        return fallback.NextUniform();
    return draws.takeFirst();
}

void BoardRandom::Arm(const QList<int> &bombIndexes, int numCells)
{
    // u = (k - 1) / N makes u * N + 1 round to k.
    draws.clear();
    for (int k : bombIndexes)
        draws.append(float(k - 1) / float(numCells));
}

GameHarness::GameHarness() : window(sound, random)
{
    ForgetSettings();
    window.Form_Load();
}

void GameHarness::NewGame(const char *board)
{
    const QStringList rows = QString::fromLatin1(board).split(u'\n');
    QList<int> bombs;
    for (int y = 0; y < rows.size(); ++y) {
        for (int x = 0; x < rows[y].size(); ++x) {
            if (rows[y][x] == u'*')
                bombs.append(y * rows[0].size() + x + 1);
        }
    }
    const int columns = int(rows[0].size());
    const bool easy = columns == 9 && rows.size() == 9 && bombs.size() == 10;
    Common::Level = easy ? Common::LevelEasy : Common::LevelCustom;
    Common::FieldX = columns;
    Common::FieldY = int(rows.size());
    Common::Bombs = int(bombs.size());
    random.Arm(bombs, columns * int(rows.size()));
    window.mnuProg_Click(0);
    QVERIFY2(Common::Bombs == bombs.size(), "the board holds more bombs than its size allows");
}

int GameHarness::At(int x, int y) const
{
    return window.Field().Idx2Vect(x, y);
}

void GameHarness::LeftPress(int index)
{
    window.btn_MouseDown(index, Qt::LeftButton);
    window.btn_MouseUp(index, Qt::LeftButton);
}

void GameHarness::RightPress(int index)
{
    window.btn_MouseDown(index, Qt::RightButton);
    window.btn_MouseUp(index, Qt::RightButton);
}

int GameHarness::Pic(int index) const
{
    return Field()->Pic(index);
}

QString GameHarness::Pictures() const
{
    const FieldView *view = Field();
    QStringList rows;
    for (int y = 0; y < view->FieldY(); ++y) {
        QString row;
        for (int x = 0; x < view->FieldX(); ++x)
            row += PictureCharacters[view->Pic(y * view->FieldX() + x + 1) - 1];
        rows.append(row);
    }
    return rows.join(u'\n');
}

QString GameHarness::BombCounter() const
{
    return window.findChild<DigitDisplay *>(QStringLiteral("pBomb"))->Digits();
}

QString GameHarness::Clock() const
{
    return window.findChild<DigitDisplay *>(QStringLiteral("pT"))->Digits();
}

bool GameHarness::ClockRunning() const
{
    return window.findChild<QTimer *>(QStringLiteral("Timer"))->isActive();
}

FieldView *GameHarness::Field() const
{
    return window.findChild<FieldView *>(QStringLiteral("field"));
}

QAction *GameHarness::Action(const char *name) const
{
    return window.findChild<QAction *>(QLatin1String(name));
}

QMenu *GameHarness::Menu(const char *name) const
{
    return window.findChild<QMenu *>(QLatin1String(name));
}

namespace {

// Looks again every 10 ms, for at most `attempts` times.
void LookForModal(const char *className, const std::function<void(QWidget *)> &act, int attempts)
{
    QTimer::singleShot(10, [className, act, attempts] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (dialog && qstrcmp(dialog->metaObject()->className(), className) == 0)
            act(dialog);
        else if (attempts > 1)
            LookForModal(className, act, attempts - 1);
    });
}

} // namespace

void WhenModal(const char *className, std::function<void(QWidget *)> act)
{
    LookForModal(className, act, 500);
}

QStringList Texts(const QList<QAction *> &actions)
{
    QStringList texts;
    for (const QAction *action : actions)
        texts.append(action->text());
    return texts;
}

void ForgetSettings()
{
    QFile::remove(SettingsFilePath());
}

QString SettingsFilePath()
{
    return SettingsStore::DefaultFilePath();
}
