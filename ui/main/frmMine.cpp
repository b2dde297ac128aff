#include "frmMine.h"

#include "AccessibleNames.h"
#include "Artwork.h"
#include "CaptionTable.h"
#include "Common.h"
#include "CrispPixmap.h"
#include "DigitDisplay.h"
#include "FieldView.h"
#include "GameSettings.h"
#include "Palette.h"
#include "SmileButton.h"
#include "WaveOutput.h"
#include "WrappingMenuBar.h"
#include "frmAbout.h"
#include "frmCustom.h"
#include "frmFame.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QTimer>

#include <algorithm>
#include <functional>

namespace {

void PaintBackground(QWidget *widget)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, Palette::Face);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

// Adds the items of a menu item array, named <name>0, <name>1 and so on; choosing one calls
// `click`, when given, with its index.
template<std::size_t N>
void AddItemArray(QMenu *menu, std::array<QAction *, N> &items, const char *name,
                  const std::function<void(int)> &click)
{
    for (int i = 0; i < int(N); ++i) {
        items[i] = menu->addAction(QString());
        items[i]->setObjectName(QLatin1String(name) + QString::number(i));
        if (click)
            QObject::connect(items[i], &QAction::triggered, menu, [click, i] { click(i); });
    }
}

// The 16 x 16 icon, also enlarged pixel for pixel, so that a task bar asking for a larger size
// gets sharp pixel art rather than a blurred enlargement.
QIcon WindowIcon()
{
    QIcon icon;
    for (const int size : {16, 32, 48, 64})
        icon.addPixmap(CrispPixmap(WindowIconPicture(), QSize(size, size), 1.0));
    return icon;
}

} // namespace

frmMine::frmMine(WaveOutput &sound, RandomSource &random, QWidget *parent)
    : QMainWindow(parent), waveOutput(sound), random(random)
{
    setWindowTitle(QStringLiteral("Velkaro"));
    setWindowIcon(WindowIcon());
    PaintBackground(this);

    Timer = new QTimer(this);
    Timer->setObjectName(QStringLiteral("Timer"));
    Timer->setInterval(1000);
    connect(Timer, &QTimer::timeout, this, &frmMine::Timer_Timer);

    // Zero interval: the next flood step comes at the next turn of the event loop, after the
    // cells of this one have been painted and any waiting press or tick has been handled.
    floodTimer = new QTimer(this);
    floodTimer->setObjectName(QStringLiteral("floodTimer"));
    floodTimer->setSingleShot(true);
    floodTimer->setInterval(0);
    connect(floodTimer, &QTimer::timeout, this, &frmMine::StepFlood);

    BuildMenus();
    BuildPanel();
}

void frmMine::BuildMenus()
{
    menus = new WrappingMenuBar(this);
    menus->setObjectName(QStringLiteral("menus"));
    setMenuWidget(menus);
    const auto addMenu = [this](const QString &title, const QString &name) {
        auto *menu = new QMenu(title, this);
        menu->setObjectName(name);
        menus->AddItem(menu->menuAction());
        return menu;
    };

    mnuGame = addMenu(QString(), QStringLiteral("mnuGame"));
    AddItemArray(mnuGame, mnuProg, "mnuProg", [this](int i) { mnuProg_Click(i); });
    mnuProg[0]->setShortcut(Qt::Key_F2);
    mnuProg[2]->setCheckable(true);
    mnuProg[2]->setChecked(true);
    mnuProg[4]->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));

    mnuLev = addMenu(QString(), QStringLiteral("mnuLev"));
    AddItemArray(mnuLev, mnuLevel, "mnuLevel", [this](int i) { mnuLevel_Click(i); });

    mnuAbout = addMenu(QStringLiteral("?"), QStringLiteral("mnuAbout"));
    mnuWho = mnuAbout->addAction(QString());
    mnuWho->setObjectName(QStringLiteral("mnuWho"));
    connect(mnuWho, &QAction::triggered, this, &frmMine::mnuWho_Click);
    mnudbg = mnuAbout->addMenu(QString());
    mnudbg->setObjectName(QStringLiteral("mnudbg"));
    mnudbg->menuAction()->setVisible(false);
    // The two Debug items do nothing when chosen.
    AddItemArray(mnudbg, mnuDebug, "mnuDebug", nullptr);

    mnuLang = new QAction(this);
    mnuLang->setObjectName(QStringLiteral("mnuLang"));
    menus->AddItem(mnuLang);
    connect(mnuLang, &QAction::triggered, this, &frmMine::mnuLang_Click);
}

void frmMine::BuildPanel()
{
    client = new QWidget(this);
    client->setObjectName(QStringLiteral("client"));
    PaintBackground(client);
    setCentralWidget(client);

    box = new QWidget(client);
    box->setObjectName(QStringLiteral("box"));
    PaintBackground(box);

    pBomb = new DigitDisplay(2, QSize(37, 29), box);
    pBomb->setObjectName(QStringLiteral("pBomb"));

    btnSmile = new SmileButton(box);
    btnSmile->setObjectName(QStringLiteral("btnSmile"));
    connect(btnSmile, &SmileButton::clicked, this, &frmMine::btnSmile_Click);

    pT = new DigitDisplay(3, QSize(53, 29), box);
    pT->setObjectName(QStringLiteral("pT"));

    field = new FieldView(client);
    field->setObjectName(QStringLiteral("field"));
    connect(field, &FieldView::CellPressed, this, &frmMine::btn_MouseDown);
    connect(field, &FieldView::CellReleased, this, &frmMine::btn_MouseUp);
    connect(field, &FieldView::CountersAsked, this, &frmMine::AnnounceCounters);

    Smile(4);
}

void frmMine::Form_Load()
{
    setWindowTitle(windowTitle() + QStringLiteral(" - ") + QStringLiteral("GA1.03"));
    // Key preview: the cheat key must be seen whichever control has the focus.
    qApp->installEventFilter(this);

    SoundOn = false;
    Common::LangEnglish = true;
    Common::Level = Common::LevelEasy;
    Playing = false;
    Common::PlayerName = QStringLiteral("Anonymous");

    SoundOn = ReadSettings();
    show();
    mnuLang_Click();
    mnuProg[2]->setChecked(SoundOn);
    DrawField();
    if (SoundOn)
        PlayWave(103);
}

void frmMine::Form_Unload()
{
    if (settingsWritten)
        return;
    settingsWritten = true;
    WriteSettings(SoundOn);
}

void frmMine::closeEvent(QCloseEvent *event)
{
    Form_Unload();
    event->accept();
}

bool frmMine::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    if (static_cast<QWidget *>(watched)->window() != this)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    // Taken here, so it is not seen again as it travels up to the parent widgets.
    return Form_KeyDown(key->key(), key->modifiers());
}

bool frmMine::Form_KeyDown(int key, Qt::KeyboardModifiers modifiers)
{
    if (key != Qt::Key_F12 || !modifiers.testFlag(Qt::ShiftModifier) ||
        !modifiers.testFlag(Qt::ControlModifier))
        return false;
    QAction *debugMenu = mnudbg->menuAction();
    debugMenu->setVisible(!debugMenu->isVisible());
    Beep();
    return true;
}

void frmMine::Beep()
{
    QApplication::beep();
}

void frmMine::mnuLang_Click()
{
    Common::LangEnglish = !Common::LangEnglish;
    int k = Common::LangEnglish ? 201 : 101;
    mnuLang->setText(Common::LangEnglish ? QStringLiteral("Italiano") : QStringLiteral("English"));
    mnuGame->setTitle(LoadString(k));
    for (QAction *item : mnuProg)
        item->setText(LoadString(++k));
    mnuLev->setTitle(LoadString(++k));
    for (QAction *item : mnuLevel)
        item->setText(LoadString(++k));
    mnudbg->setTitle(LoadString(++k));
    for (QAction *item : mnuDebug)
        item->setText(LoadString(++k));
    mnuWho->setText(LoadString(k + 1));
    NameControls(pBomb, btnSmile, pT, field);
    // The captions of the other language may need another line of the menu bar.
    FitWindow();
}

void frmMine::mnuProg_Click(int index)
{
    switch (index) {
    case 0:
        RequestField(FieldRequest::NewGame);
        break;
    case 1:
        LostGame(0, true);
        break;
    case 2:
        SoundOn = !SoundOn;
        mnuProg[2]->setChecked(SoundOn);
        HoldSoundDevice();
        break;
    case 3:
        ShowModal(new frmFame(this));
        break;
    case 4:
        RequestField(FieldRequest::Exit);
        break;
    default:
        break;
    }
}

void frmMine::mnuLevel_Click(int index)
{
    if (index < 0 || index >= int(mnuLevel.size()))
        return;
    Common::Level = index;
    if (index == Common::LevelCustom)
        ShowModal(new frmCustom(this));
    RequestField(FieldRequest::Rebuild);
}

void frmMine::mnuWho_Click()
{
    ShowModal(new frmAbout(this));
}

void frmMine::btnSmile_Click()
{
    pBomb->setFocus();
    mnuProg_Click(0);
}

void frmMine::ShowModal(QDialog *dialog)
{
    ++modalDepth;
    dialog->exec();
    --modalDepth;
    if (modalDepth == 0 && pendingRequest != FieldRequest::None)
        floodTimer->start();
}

void frmMine::RequestField(FieldRequest request)
{
    if (Flooding() || pendingRequest != FieldRequest::None) {
        pendingRequest = std::max(pendingRequest, request);
        return;
    }
    CarryOut(request);
}

void frmMine::CarryOut(FieldRequest request)
{
    switch (request) {
    case FieldRequest::None:
        break;
    case FieldRequest::Rebuild:
        DrawField();
        break;
    case FieldRequest::NewGame:
        StartGame();
        break;
    case FieldRequest::Exit:
        Exit();
        break;
    }
}

void frmMine::StartGame()
{
    DrawField();
    SetLevelMenuEnabled(false);
    Playing = true;
    HoldSoundDevice();
    TimeLeft = Common::TimeLimit;
    DisplayBombs(FlagsLeft);
    DisplayTime(TimeLeft);
    Timer->start();
    field->Announce(BombsText(Common::Bombs) + QStringLiteral(", ") +
                    SecondsText(Common::TimeLimit));
}

void frmMine::Exit()
{
    close();
    QCoreApplication::quit();
}
