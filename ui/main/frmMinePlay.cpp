// The game in play: building the field, presses on cells, floods, the clock and both ends of
// a game. Construction, menus and keys are in frmMine.cpp.
#include "frmMine.h"

#include "AccessibleNames.h"
#include "Common.h"
#include "DigitDisplay.h"
#include "FieldBuilder.h"
#include "FieldView.h"
#include "LossDisplay.h"
#include "RecordInsertion.h"
#include "SmileButton.h"
#include "WaveOutput.h"
#include "WrappingMenuBar.h"
#include "frmFame.h"
#include "frmPlayer.h"

#include <QMenu>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

// The panel and its parts, as wide as the field; the clock keeps 2 pixels from its right end.
constexpr int FieldLeft = 4;
constexpr int FieldTop = 32;
constexpr int BoxHeight = 33;
constexpr int SmileWidth = 26;
constexpr int SmileTop = 2;
constexpr int ClockWidth = 53;
constexpr int ClockRightGap = 2;
constexpr int Margin = 4;

bool IsPresetLevel(int level)
{
    return level >= Common::LevelEasy && level <= Common::LevelHard;
}

} // namespace

void frmMine::DrawField()
{
    Q_ASSERT(!Flooding());
    ApplyLevelPreset();
    BuildMinefield(Cells, Common::Bombs, random);
    FitToField();
    Smile(4);
    Common::NumCells = Common::FieldX * Common::FieldY;
    BombsLeft = Common::Bombs;
    FlagsLeft = Common::Bombs;
    DisplayBombs(0);
    DisplayTime(0);
}

void frmMine::FitToField()
{
    field->Reset(Common::FieldX, Common::FieldY);
    field->move(FieldLeft, FieldTop);
    const int boxWidth = field->width();
    box->setGeometry(FieldLeft, 0, boxWidth, BoxHeight);
    btnSmile->move((boxWidth - SmileWidth) / 2, SmileTop);
    pT->move(boxWidth - ClockWidth - ClockRightGap, 0);

    client->setFixedSize(Margin + boxWidth + Margin, FieldTop + field->height() + Margin);
    FitWindow();
}

void frmMine::FitWindow()
{
    // Sized from the client area: the menu bar may take more than one line on a narrow field.
    menus->FitTo(client->width());
    setFixedSize(client->width(), menus->height() + client->height());
}

void frmMine::SetPic(int i, int p)
{
    field->SetPic(i, p);
}

void frmMine::btn_MouseDown(int index, Qt::MouseButton button)
{
    if (!Playing)
        return;
    Smile(3);
    Cells.Vect2Idx(index);
    if (SoundOn)
        PlayWave(101);
    Cell &cell = Cells.Cells(Cells.CurX, Cells.CurY);
    if (button == Qt::RightButton) {
        if (!cell.Opened) {
            if (cell.Flagged) {
                cell.Flagged = false;
                cell.Queried = true;
                SetPic(index, CellPicture::Query);
                DisplayBombs(++FlagsLeft);
                AnnounceMark(CellPicture::Query);
                if (cell.Bomb)
                    ++BombsLeft;
                return;
            }
            if (cell.Queried) {
                cell.Queried = false;
                SetPic(index, CellPicture::Covered);
                AnnounceMark(CellPicture::Covered);
                return;
            }
            cell.Flagged = true;
            SetPic(index, CellPicture::Flag);
            DisplayBombs(--FlagsLeft);
            AnnounceMark(CellPicture::Flag);
            if (cell.Bomb)
                --BombsLeft;
        }
    } else if (!cell.Opened) {
        if (cell.Bomb) {
            Smile(2);
            LostGame(index, false);
            return;
        }
        if (cell.Count == 0) {
            ReveilBlanks(Cells.CurX, Cells.CurY);
            return;
        }
        SetPic(index, cell.Count + 1);
        field->Announce(CellName(cell.Count + 1));
        cell.Opened = true;
    }
    if (BombsLeft == 0)
        Victory();
}

void frmMine::btn_MouseUp(int, Qt::MouseButton)
{
    if (Playing)
        Smile(4);
}

void frmMine::ReveilBlanks(int x, int y)
{
    // The flood keeps its own copy of the start cell; the first step opens it at once, so a
    // second press on the same cell finds it open.
    floods.emplace_back(x, y);
    StepFlood();
}

void frmMine::StepFlood()
{
    if (Flooding()) {
        Flood &flood = floods.back();
        for (const CellPicture &opened : flood.Step(Cells)) {
            SetPic(opened.Index, opened.Picture);
            ++cellsFlooded;
        }
        if (flood.Finished())
            floods.pop_back();
        if (!Flooding())
            field->Announce(CellsOpenedText(std::exchange(cellsFlooded, 0)));
        // A waiting request gets one more turn, so the last cells are painted before it.
        if (Flooding() || pendingRequest != FieldRequest::None)
            floodTimer->start();
        return;
    }
    // Under a dialog the request keeps waiting; ShowModal comes back for it.
    if (modalDepth == 0)
        CarryOut(std::exchange(pendingRequest, FieldRequest::None));
}

void frmMine::AnnounceMark(int picture)
{
    field->Announce(CellName(picture) + QStringLiteral(", ") + BombsLeftText(FlagsLeft));
}

void frmMine::AnnounceCounters()
{
    field->Announce(BombsLeftText(pBomb->Digits().toInt()) + QStringLiteral(", ") +
                    SecondsText(pT->Digits().toInt()));
}

void frmMine::Timer_Timer()
{
    if (SoundOn)
        PlayWave(105);
    --TimeLeft;
    DisplayTime(TimeLeft);
    if (TimeLeft == 120 && SoundOn)
        PlayWave(104);
    if (TimeLeft == 0)
        LostGame(0, true);
}

void frmMine::Victory()
{
    Timer->stop();
    Playing = false;
    HoldSoundDevice();
    Smile(1);
    field->Announce(FaceMeaning(1));
    if (SoundOn)
        PlayWave(103);
    if (IsPresetLevel(Common::Level)) {
        const int elapsed = Common::TimeLimit - TimeLeft;
        RecordTable &table = RecordsOfLevel(Common::Level);
        const int row = RecordRowFor(table, elapsed);
        if (row >= 0) {
            MakeRoomAt(table, row);
            // Written before the name is asked too: should the game end under the dialog (a
            // logout, a signal), the save keeps the win under the last name given.
            WriteRecordRow(table, row, Common::PlayerName, elapsed);
            ShowModal(new frmPlayer(this));
            WriteRecordRow(table, row, Common::PlayerName, elapsed);
            ShowModal(new frmFame(this));
        }
    }
    SetLevelMenuEnabled(true);
}

void frmMine::LostGame(int thisIdx, bool skip)
{
    Timer->stop();
    Playing = false;
    HoldSoundDevice();
    SetLevelMenuEnabled(true);
    if (SoundOn)
        PlayWave(102);
    Smile(2);
    field->Announce(skip ? FaceMeaning(2)
                         : CellName(CellPicture::Exploded) + QStringLiteral(", ") + FaceMeaning(2));
    if (!skip) {
        SetPic(thisIdx, CellPicture::Exploded);
        Cells.Vect2Idx(thisIdx);
        Cells.Cells(Cells.CurX, Cells.CurY).Opened = true;
    }
    for (const CellPicture &shown : LossDisplay(Cells, skip ? 0 : thisIdx))
        SetPic(shown.Index, shown.Picture);
}

void frmMine::SetLevelMenuEnabled(bool enabled)
{
    mnuLev->menuAction()->setEnabled(enabled);
}

void frmMine::DisplayBombs(int v)
{
    if (v < 0)
        return;
    // Two places: a custom field with more than 99 bombs shows 99 until fewer are left.
    const int shown = std::min(v, 99);
    pBomb->SetDigit(1, shown / 10);
    pBomb->SetDigit(0, shown % 10);
}

void frmMine::DisplayTime(int v)
{
    pT->SetDigit(2, v / 100);
    const int r = v % 100;
    pT->SetDigit(1, r / 10);
    pT->SetDigit(0, r % 10);
}

void frmMine::Smile(int face)
{
    btnSmile->SetFace(face);
}

int frmMine::ShownFace() const
{
    return btnSmile->Face();
}

void frmMine::PlayWave(int id)
{
    waveOutput.Play(id);
}

void frmMine::HoldSoundDevice()
{
    waveOutput.KeepOpen(Playing && SoundOn);
}
