#include "app/Program.h"

#include <QApplication>
#include <QCursor>
#include <QFontMetrics>
#include <QIcon>
#include <QKeyEvent>
#include <QScreen>
#include <QTimer>
#include <QToolTip>
#include <cstdio>
#include <optional>

#include "app/DataFolder.h"
#include "app/KeyStrokes.h"
#include "app/LargeKeys.h"
#include "app/MenuButtons.h"
#include "app/MoveLog.h"
#include "app/Sentences.h"
#include "core/Records.h"
#include "core/Turns.h"
#include "dialogs/Ayuda.h"
#include "dialogs/Historic.h"
#include "dialogs/Personal.h"
#include "dialogs/QueuedInput.h"
#include "dialogs/careta.h"
#include "dialogs/mensajes.h"
#include "store/HistoryFile.h"

namespace zorva {
namespace {

// What is heard when a menu button is pressed, by its index.
constexpr Sound buttonSounds[MenuButtonCount] = {Sound::PageOpens,   Sound::MenuKey, Sound::SettingsOpen,
                                                 Sound::HistoryPage, Sound::Advice,  Sound::MenuKey};

// When the program's icon is drawn: nobody waits for it.
constexpr int iconMilliseconds = 300;

// How long a note says that the sound is on or off.
constexpr int noteMilliseconds = 1500;

// A window that has been minimised stays active until the window manager has hidden it and Qt has seen,
// a tenth of a second later, that no other window of the program follows it.
constexpr int hidingMilliseconds = 300;

// When the player leaves, the program waits this long for the disk. Afterwards the system goes on
// writing what it has taken.
constexpr std::chrono::seconds leavingPatience{2};

// For players who hear the game through a screen reader.
const char* const welcome =
    "F1 abre el manual, F2 empieza una partida, F3 cambia los jugadores y las opciones. En la partida, "
    "Intro tira el dado, el tabulador elige ficha, F8 dice la posición y F9 las últimas jugadas.";

// Where the player is looking: where the cursor is, if the desktop tells.
const QScreen& ScreenOfCursor() {
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    return screen != nullptr ? *screen : *QGuiApplication::primaryScreen();
}

// In the middle of the window that has the keyboard.
void ShowNote(const QString& text) {
    QWidget* window = QApplication::activeWindow();
    if (window == nullptr) return;
    const QPoint half(QFontMetrics(QToolTip::font()).horizontalAdvance(text) / 2, 0);
    QToolTip::showText(window->mapToGlobal(window->rect().center()) - half, text, window, {},
                       noteMilliseconds);
}

// Its smallest size has a drawing of its own.
QIcon ProgramIcon() {
    QIcon icon(":/icon/zorva.svg");
    icon.addPixmap(QIcon(":/icon/zorva_small.svg").pixmap(16));
    return icon;
}

}  // namespace

Program::Program(const std::filesystem::path& programFolder, const std::filesystem::path& dataFolder)
    : programFolder_(programFolder),
      dataFolder_(dataFolder),
      mesa_(state_, settings_),
      outside_(mesa_, state_, settings_),
      runner_(state_, settings_, outside_),
      keeper_(state_, settings_),
      input_(state_, settings_, recorder_, mesa_),
      recorderControl_({state_, settings_, outside_}, recorder_, mesa_),
      chances_(state_, settings_, recorder_, recorderControl_, input_, mesa_) {
    mesa_.setWindowState(Qt::WindowFullScreen);
    ConnectServices();
    ConnectWindow();
    ConnectGame();
}

// ---------------------------------------------------------------------------------- connections

void Program::ConnectServices() {
    Services& shared = mesa_.Shared();
    shared.PlaySound = [this](Sound sound) {
        if (settings_.SoundOn == 1) sounds_.Play(sound);
    };
    shared.SwitchSound = [this] { SwitchSound(); };
    shared.Say = [this](const QString& sentence) { outside_.Speech().SayNow(sentence); };
    shared.Pause = [this](Short n) { outside_.Pause(n); };
    shared.ShowManual = [this](QWidget* over) {
        ShowHelp(over, mesa_.Shared(), FindManual(programFolder_));
    };
    mesa_.Ask = [this](const QString& title, const QString& text, Short lineCount,
                       MessageButtons buttons) {
        AwaitPlayer();
        if (runner_.IsLeaving()) return MessageAnswer::Refused;
        return ShowMessage(&mesa_, mesa_.Shared(), title, text, lineCount, buttons);
    };
    keeper_.Failed = [this](const std::string& title, const std::string& text) {
        Tell(QString::fromStdString(title), QString::fromStdString(text));
    };
}

void Program::ConnectWindow() {
    mesa_.ButtonPressed = [this](int button) { ButtonPressed(button); };
    mesa_.BoardPressed = [this](Point at, Qt::MouseButton button) { input_.Press(at, button); };
    mesa_.BoardMoved = [this](Point at) { input_.Move(at); };
    mesa_.BoardReleased = [this](Point at, bool onBoard) { input_.Release(at, onBoard); };
    mesa_.BoardPressLost = [this] { input_.LosePress(); };
    mesa_.BoardLeft = [this] {
        input_.BreakOff();
        wasAwaited_ = IsPlayerAwaited();
    };
    // After the reader has said that the board is back, which silences what it said before.
    mesa_.BoardBack = [this] { QTimer::singleShot(0, &mesa_, [this] { RemindPlayer(); }); };
    mesa_.KeyPressed = [this](const QKeyEvent& key) { KeyPressed(key); };
    mesa_.CloseWanted = [this] { Leave(); };
    mesa_.CursorAt = [this](Point at) { return input_.CursorAt(at); };
    mesa_.WaitChanged = [this] {
        input_.ShowWhatCanBePicked();
        if (state_.WaitingForThrow || state_.WaitingForMove) chances_.Refresh();
    };
    mesa_.ChancesPressed = [this] { ShowChances(); };
    mesa_.LaidOut = [this] { chances_.LayoutChanged(); };
    mesa_.Log().RowText = [this](int row) {
        return row == 0 ? QString() : NumberedMoveText(state_, settings_, ToShort(row));
    };
    mesa_.Strip().Pressed = [this](RecorderKey key) { recorderControl_.Press(key); };
    mesa_.Strip().IsLive = [this](RecorderKey key) {
        return !Mesa::IsBlocked() && recorderControl_.IsLive(key);
    };
    mesa_.Buttons().IsLive = [this](int button) {
        return !Mesa::IsBlocked() && (button != MenuButtons::Advice || CanAdvise());
    };
}

void Program::ConnectGame() {
    outside_.PositionKept = [this](const GameState& position) {
        chances_.PositionReached(position);
        keeper_.PositionReached(position);
    };
    outside_.TapeMoved = [this] { chances_.Refresh(); };
    outside_.PieceLifted = [this] { screenSaver_.HoldOff(); };
    outside_.ResultKept = [this](const GameResult& result) {
        keeper_.AppendResult(result);
        keeper_.GameOver();  // even if the player is leaving: a game is appended once
    };
    runner_.GameOver = [this] { keeper_.GameOver(); };
    runner_.Idle = [this] { mesa_.Shared().Say(PositionText(state_, settings_)); };
    runner_.SettingsWanted = [this] { ButtonPressed(MenuButtons::Personalize); };
    runner_.Ended = [this] {
        if (Ended) Ended();
    };
}

// ----------------------------------------------------------------------------------------- start

// The board opens behind the title; what the player has to answer waits for the title's end.
void Program::Start() {
    mesa_.ChooseScreen(ScreenOfCursor());
    ShowSplash(&mesa_, mesa_.Shared(), [this] { OpenBoard(); });
    mesa_.Shared().Say(welcome);
    TellAboutFiles();
    if (state_.GameInProgress) {
        ContinueGame();
    } else {
        mesa_.Scene().ShowSignAgain();  // the title lay over it
    }
}

void Program::OpenBoard() {
    LoadGame();
    mesa_.show();
    QTimer::singleShot(iconMilliseconds, &mesa_, [] { QApplication::setWindowIcon(ProgramIcon()); });
    if (settings_.SoundOn == 1) sounds_.Prepare();
}

void Program::LoadGame() {
    loaded_ = keeper_.Load(CopyFilesOfFirstRun(programFolder_, dataFolder_));
    settings_ = loaded_.content.settings;
    state_ = std::move(loaded_.content.state);
    ApplyChoices();
    RebuildLog({state_, settings_, outside_}, ToShort(state_.MoveRecordCount - 1));
}

void Program::TellAboutFiles() {
    if (!loaded_.text.empty()) {
        Tell(QString::fromStdString(loaded_.title), QString::fromStdString(loaded_.text));
    }
    if (!loaded_.explanation.empty()) {
        Tell(QString::fromStdString(loaded_.title), QString::fromStdString(loaded_.explanation));
    }
    if (loaded_.writeError != FileError::None) {
        const std::string never = " En esta sesión no se guardarán ni la partida ni los ajustes.";
        Tell(SaveErrorTitle, QString::fromStdString(SaveErrorText(loaded_.writeError, SettingsFileName) +
                                                    (keeper_.MayWrite() ? "" : never)));
    }
}

void Program::TellFilesInUse() {
    const QString text =
        QString(
            "Otro programa está usando los ficheros de la carpeta %1. Puede ser el Zorva de otro "
            "usuario o uno que no responde. Arranque Zorva otra vez cuando haya terminado.")
            .arg(QString::fromStdString(dataFolder_.string()));
    std::fprintf(stderr, "zorva32: %s\n", qUtf8Printable(text));
    mesa_.ChooseScreen(ScreenOfCursor());
    ShowMessage(nullptr, mesa_.Shared(), "Los ficheros están en uso", text, MessageLinesFor(text),
                MessageButtons::Acknowledge);
}

void Program::ContinueGame() {
    Tell("Continuar la partida anterior",
         "Continua el desarrollo de la partida que no finalizó en la sesión anterior.");
    if (state_.GameInProgress) runner_.Continue();  // the player may have left meanwhile
}

void Program::ComeToFront() {
    mesa_.ComeToFront();
    // A window that waits for an answer lies above the board, and the keys are for it.
    QWidget* asking = QApplication::activeModalWidget();
    if (asking != nullptr) asking->raise();
    (asking != nullptr ? asking : &mesa_)->activateWindow();
}

// -------------------------------------------------------------------------------------- messages

// A message takes the keyboard. While the player works with another program the game only asks for his
// attention; and the reader, which a message interrupts, first says what led to it. Close requests,
// signals and a second start are handled meanwhile. A click or a key on the board ends the wait and does
// nothing else: it shows that the player is back even if Qt reports that no window is active.
void Program::AwaitPlayer() {
    if (mesa_.isMinimized()) mesa_.Waits().Wait(hidingMilliseconds);
    const InputSink sink(&mesa_);
    std::optional<CloseSink> closeSink;
    if (asksToLeave_) closeSink.emplace();
    const auto waits = [&] { return !runner_.IsLeaving() && !sink.HasPress(); };
    while (mesa_.IsLeft() && waits()) {
        QApplication::alert(&mesa_);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    outside_.Speech().MessageComes();
    while (outside_.Speech().IsSpeaking() && waits()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

bool Program::IsPlayerAwaited() const {
    return (state_.WaitingForThrow || state_.WaitingForMove) && !recorder_.RecorderOn;
}

// Another window has come in between: the narrator says again what the game waits for.
void Program::RemindPlayer() {
    if (wasAwaited_ && IsPlayerAwaited()) outside_.Speech().PlayerAwaited();
    wasAwaited_ = false;
}

void Program::Tell(const QString& title, const QString& text) {
    mesa_.Ask(title, text, MessageLinesFor(text), MessageButtons::Acknowledge);
}

// -------------------------------------------------------------------------------------- the menu

void Program::ButtonPressed(int button) {
    WoodenKey& key = mesa_.Buttons().Button(button);
    key.ShowPressed(true);
    mesa_.Shared().PlaySound(buttonSounds[button]);
    outside_.Pause(10);
    key.ShowPressed(false);
    switch (button) {
        case MenuButtons::Help: mesa_.Shared().ShowManual(&mesa_); break;
        case MenuButtons::NewGame: NewGame(); break;
        case MenuButtons::Personalize: Personalize(); break;
        case MenuButtons::History: ShowHistory(); break;
        case MenuButtons::Advice: ShowAdvice(); break;
        case MenuButtons::Leave: Leave(); break;
        default: break;
    }
}

bool Program::ConfirmNewGame() {
    if (!state_.GameInProgress) return true;
    return mesa_.Ask("Abandonar la partida en curso",
                     "¿Desea abandonar la partida que está jugando para comenzar una nueva partida?", 2,
                     MessageButtons::YesNo) == MessageAnswer::Accepted;
}

void Program::NewGame() {
    if (!ConfirmNewGame()) return;
    recorderControl_.TakeTapeOut();
    outside_.Pause(10);
    runner_.StartNewGame();
}

bool Program::ConfirmExit() {
    if (!state_.GameInProgress) return true;
    const bool canGoOn = keeper_.HasGame();
    const QString title = canGoOn ? "Posponer la partida en curso" : "Salir del programa";
    const QString text =
        canGoOn ? "¿Desea abandonar el programa para continuar en otro momento la partida que "
                  "está jugando?"
                : "¿Desea abandonar la partida que está jugando?";
    return mesa_.Ask(title, text, canGoOn ? 2 : 1, MessageButtons::YesNo) == MessageAnswer::Accepted;
}

bool Program::MayLeave() {
    if (!recorder_.RecorderOn) return ConfirmExit();
    Tell("Salir del programa", "Antes de abandonar el programa debe apagar la Grabadora de jugadas.");
    return false;
}

// Any key answers yes, so yes is the answer that loses nothing.
bool Program::SavesOrGivesUp() {
    const std::string lost = keeper_.SaveToLeave(leavingPatience);
    if (lost.empty()) return true;
    const QString text = QString::fromStdString(lost + "\n¿Desea quedarse para intentarlo otra vez?");
    return mesa_.Ask(SaveErrorTitle, text, MessageLinesFor(text), MessageButtons::YesNo) ==
           MessageAnswer::Refused;
}

// The window manager may ask to close the hidden board: the question comes over the board, and only
// once.
void Program::Leave() {
    if (state_.GameInProgress) ComeToFront();
    if (asksToLeave_) return;
    asksToLeave_ = true;
    const bool leaves = MayLeave() && SavesOrGivesUp();
    asksToLeave_ = false;
    if (leaves) runner_.Leave();
}

void Program::SaveAtEnd() {
    const std::string lost = keeper_.SaveNow();
    if (!lost.empty()) std::fprintf(stderr, "zorva32: %s\n", lost.c_str());
}

bool Program::CanAdvise() const {
    return state_.WaitingForMove && !recorder_.RecorderOn;
}

void Program::ShowAdvice() {
    if (CanAdvise()) {
        ShowChosenMove({state_, settings_, outside_});
    } else {
        mesa_.Shared().Say("Ahora no hay ninguna jugada que aconsejar.");
    }
}

void Program::ApplyChoices() {
    ApplySettings(state_, settings_);
    mesa_.Buttons().Explain(settings_.ButtonInfo == 1);
    mesa_.Strip().Explain(settings_.ButtonInfo == 1);
    mesa_.RecorderKeys().Explain(settings_.ButtonInfo == 1);
    mesa_.Scene().RepaintHouses();
    chances_.Refresh();
}

void Program::Personalize() {
    ShowPersonal(&mesa_, mesa_.Shared(), settings_, state_.GameInProgress != No,
                 {[this] { ApplyChoices(); }, [this] { keeper_.Save(); }});
    // A colour that the computer plays from now on does not wait for a person's move.
    if (state_.WaitingForMove && settings_.PlayerType[state_.CurrentColour] == 1)
        TakeAdvisedMove(state_);
    input_.ShowWhatCanBePicked();
    mesa_.RefreshCursor();
}

void Program::ShowHistory() {
    ShowHistoric(&mesa_, mesa_.Shared(), ReadHistory(keeper_.Folder()));
}

void Program::ShowChances() {
    mesa_.Shared().PlaySound(Sound::PageOpens);
    chances_.Toggle();
}

// ---------------------------------------------------------------------------------- the keyboard

bool Program::RecorderKeyPressed(const QKeyEvent& key) {
    if (!(key.modifiers() & Qt::ControlModifier)) return false;
    switch (key.key()) {
        case Qt::Key_Home: recorderControl_.Press(RecorderKey::OnOff); return true;
        case Qt::Key_Left: recorderControl_.Press(RecorderKey::BackOne); return true;
        case Qt::Key_Right: recorderControl_.Press(RecorderKey::ForwardOne); return true;
        case Qt::Key_Up: recorderControl_.Press(RecorderKey::AutoBack); return true;
        case Qt::Key_Down: recorderControl_.Press(RecorderKey::AutoForward); return true;
        case Qt::Key_End: recorderControl_.Press(RecorderKey::Restore); return true;
        default: return false;
    }
}

// What players hear on request.
bool Program::SpokenKeyPressed(int key) {
    const Services& shared = mesa_.Shared();
    const GameState* latest = chances_.LatestGame();
    const GameState& game = latest != nullptr ? *latest : state_;
    switch (key) {
        case Qt::Key_F8: shared.Say(PositionText(state_, settings_)); return true;
        case Qt::Key_F9: shared.Say(LastMovesText(game, settings_)); return true;
        default: return false;
    }
}

// Last it saves, because a message may follow.
void Program::SwitchSound() {
    settings_.SoundOn = settings_.SoundOn == 1 ? 2 : 1;
    const QString told = settings_.SoundOn == 1 ? "Sonido encendido." : "Sonido apagado.";
    mesa_.Shared().PlaySound(Sound::Accept);
    mesa_.Shared().Say(told);
    ShowNote(told);
    keeper_.Save();
}

bool Program::WindowKeyPressed(int key) {
    switch (key) {
        case Qt::Key_F11: mesa_.SwitchFullScreen(); return true;
        case Qt::Key_F12: SwitchSound(); return true;
        default: return false;
    }
}

void Program::KeyPressed(const QKeyEvent& key) {
    input_.LosePress();
    outside_.Speech().KeyPressed();
    if (RecorderKeyPressed(key)) return;
    const bool unmodified =
        !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    const int code = key.key();
    if (unmodified && code >= Qt::Key_F1 && code <= Qt::Key_F6) {
        ButtonPressed(code - Qt::Key_F1);
    } else if (unmodified && code == Qt::Key_F7) {
        ShowChances();
    } else if (unmodified &&
               (WindowKeyPressed(code) || SpokenKeyPressed(code) || input_.ManualKey(code))) {
        return;
    } else if (unmodified && (code == Qt::Key_Tab || code == Qt::Key_Right || code == Qt::Key_Down)) {
        input_.MarkNext(1);
    } else if (unmodified && (code == Qt::Key_Backtab || code == Qt::Key_Left || code == Qt::Key_Up)) {
        input_.MarkNext(-1);
    } else if (IsPlainKey(key)) {
        input_.PlainKey(key);
    }
}

}  // namespace zorva
