#include "app/Program.h"

#include <gtest/gtest.h>

#include <QTest>

#include "app/EndSignals.h"
#include "app/MenuButtons.h"
#include "store/HistoryFile.h"
#include "tests/dialogs/WindowFixture.h"
#include "tests/support/Files.h"

namespace zorva::test {
namespace {

namespace fs = std::filesystem;

/// The program in a folder of the test's own, played by four computers without pauses and sounds.
class ProgramTest : public testing::Test {
protected:
    ProgramTest() {
        fs::create_directory(data);
        settings.PlayerType.fill(1);
        settings.Speed = 100;
        settings.SoundOn = 2;
        player.callOnTimeout([this] { Play(); });
    }

    /// Starts the program and closes its title by a key. Each question is answered with yes.
    void Start() {
        SaveSettings(data, settings, {}, Durability::Lazy);
        Restart();
    }
    void Restart() {
        asked.clear();
        program = std::make_unique<Program>(data, data);
        program->Window().Ask = [this](const QString& title, auto...) {
            asked << title;
            if (title == goneAfter) fs::rename(data, folder / "aside");
            program->SaveAtEnd();  // as when the session ends meanwhile
            EXPECT_TRUE(title != "Continuar la partida anterior" || Saved().GameInProgress);
            if (onQuestion && title == "Histórico de partidas jugadas") onQuestion();
            return title == refused ? MessageAnswer::Refused : MessageAnswer::Accepted;
        };
        program->Ended = [this] { asked << "left"; };
        Person person([](QWidget& title) { QTest::keyClick(title.focusWidget(), Qt::Key_Escape); });
        program->Start();
    }

    void Press(int button) {
        QTest::mouseClick(&program->Window().Buttons().Button(button), Qt::LeftButton);
    }
    /// Throws the die for the computers, then leaves.
    void Play() {
        const GameState& state = program->State();
        if (!state.WaitingForThrow) return;
        const QWidget& advice = program->Window().Buttons().Button(MenuButtons::Advice);
        EXPECT_EQ(advice.cursor().shape(), Qt::ArrowCursor) << "there is nothing to choose";
        if (state.MoveRecordCount < 12) return QTest::keyClick(&program->Window(), Qt::Key_Space);
        Press(MenuButtons::Leave);
    }

    std::size_t Results() const { return FileBytes(data / HistoryFileName).size() / 53; }
    GameState Saved() const { return LoadSettings(data).content.state; }

    TemporaryFolder folder;
    const fs::path data = folder / "data";
    Settings settings;
    std::unique_ptr<Program> program;
    QTimer player;
    QStringList asked;
    QString refused, goneAfter;
    std::function<void()> onQuestion;  ///< whether a game goes into the history
};

TEST_F(ProgramTest, AsksAboutAWonGameUntilThatIsAnswered) {
    settings.PauseBetweenMoves = 2;
    std::string whileAsked;
    onQuestion = [&] {
        whileAsked = FileBytes(data / SettingsFileName);
        Press(MenuButtons::Leave);
    };
    Start();
    Press(MenuButtons::NewGame);
    EXPECT_EQ(asked.value(asked.size() - 2), "Posponer la partida en curso");
    EXPECT_EQ(Saved().GameInProgress, No) << "the answer was yes, although the player is leaving";
    onQuestion = {};
    WriteBytes(data / SettingsFileName, whileAsked);  // the session ended before the answer
    Restart();
    EXPECT_EQ(asked, (QStringList{"Continuar la partida anterior", "Final de la Partida",
                                  "Histórico de partidas jugadas"}));
    EXPECT_EQ(Results(), 2u);
    EXPECT_EQ(Saved().GameInProgress, No);
}

TEST_F(ProgramTest, KeepsTheFirstMoveAndSaysSoWhenItIsLeftRightAfterIt) {
    settings.PauseBetweenMoves = 2;
    Start();
    QTimer leaver;
    leaver.callOnTimeout([this, &leaver] {
        if (program->State().MoveRecords[1].MoverColour == 0) return;
        leaver.stop();
        Press(MenuButtons::Leave);
    });
    leaver.start(0);
    Press(MenuButtons::NewGame);
    EXPECT_EQ(asked.value(asked.size() - 2), "Posponer la partida en curso");
    EXPECT_EQ(Saved().GameInProgress, Yes);
    EXPECT_EQ(Saved().MoveRecords[1], program->State().MoveRecords[1]);
}

TEST_F(ProgramTest, AsksBeforeItLeavesAGameThatCannotBeKept) {
    settings.PauseBetweenMoves = 1;
    goneAfter = "Posponer la partida en curso";
    Start();
    player.start(0);
    testing::internal::CaptureStderr();
    player.callOnTimeout([this] {
        if (asked.value(asked.size() - 1) != "No se puede guardar") return;
        goneAfter.clear();  // stayed: the next question is refused
        refused = "No se puede guardar";
    });
    Press(MenuButtons::NewGame);
    const std::string errors = testing::internal::GetCapturedStderr();
    const QString leave = "Posponer la partida en curso", unwritten = "No se puede guardar";
    EXPECT_EQ(asked.mid(asked.size() - 5), QStringList({leave, unwritten, leave, unwritten, "left"}));
    EXPECT_NE(errors.find("no existe la carpeta (error 76). La partida no queda guardada"),
              std::string::npos)
        << errors;
}

TEST_F(ProgramTest, TellsOnceThatAFirstStartCanKeepNothing) {
    fs::create_directories(data / "ZORVA32.TMP" / "full");
    Restart();
    Person person([](QWidget& window) {
        QTest::keyClick(window.findChild<QWidget*>("Pic_Velocidad"), Qt::Key_PageDown);
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    });
    QTest::keyClick(&program->Window(), Qt::Key_F3);
    EXPECT_EQ(asked, QStringList{"No se puede guardar"});
    Press(MenuButtons::Leave);
    fs::remove_all(data / "ZORVA32.TMP");
    Press(MenuButtons::Leave);
    EXPECT_EQ(asked, QStringList({"No se puede guardar", "No se puede guardar", "left"}));
}

TEST(EndOfTheSession, AsksNoWindowToClose) {
    static int ends = 0, closes = 0;
    OnQuitRequest([] { ++ends; });
    const GameState state;
    const Settings settings;
    Mesa board(state, settings);
    board.CloseWanted = [] { ++closes; };
    board.show();
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(closes, 0);
}

TEST_F(ProgramTest, F11LeavesAndEntersFullScreenAndTheWindowKeepsItsSize) {
    Start();
    Mesa& mesa = program->Window();
    EXPECT_TRUE(mesa.isFullScreen());
    const auto press = [&] { QTest::keyClick(&mesa, Qt::Key_F11); };
    const auto isWindow = [&](QSize size) { return !mesa.isFullScreen() && mesa.size() == size; };
    press();
    EXPECT_TRUE(isWindow({640, 600})) << "three quarters of 800x800, but no less than 640x480";
    mesa.resize(100, 700);
    for (int times = 0; times < 2; ++times) {
        mesa.showMinimized();
        program->ComeToFront();
        EXPECT_TRUE(!mesa.isMinimized() && isWindow({640, 700}));
        press();
        EXPECT_TRUE(mesa.isFullScreen());
        mesa.showMinimized();
        program->ComeToFront();
        EXPECT_TRUE(!mesa.isMinimized() && mesa.isFullScreen());
        press();
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return mesa.Shared().layout.DeviceTop == (700 - 512) / 2; }));
}

TEST_F(ProgramTest, F12SwitchesTheSoundWhereKeysDoNotAnswer) {
    WriteBytes(data / "ZORVA32.HLP",
               "<!DOCTYPE html><html><title>Zorva: manual del jugador</title></html>");
    Start();
    Services& shared = program->Window().Shared();
    QStringList said;
    shared.Say = [&](const QString& sentence) { said << sentence; };
    const auto soundIn = [this] { return LoadSettings(data).content.settings.SoundOn; };
    QTest::keyClick(&program->Window(), Qt::Key_F12);
    EXPECT_EQ(soundIn(), 1);
    Person person([&](QWidget& window) {
        const auto* sound = window.findChild<QAbstractButton*>("Pic_Opcion_4");
        QTest::keyClick(window.focusWidget(), Qt::Key_F12);
        EXPECT_EQ(std::pair(sound->isChecked(), soundIn()), std::pair(false, Short{2}));
        Person reader([](QWidget& manual) { QTest::keyClick(manual.focusWidget(), Qt::Key_F12); });
        QTest::keyClick(window.findChild<QWidget*>("Txt_Nombre_1"), Qt::Key_F1);
        EXPECT_EQ(std::pair(sound->isChecked(), soundIn()), std::pair(true, Short{1}));
    });
    QTest::keyClick(&program->Window(), Qt::Key_F3);
    EXPECT_EQ(said.mid(0, 3),
              QStringList({"Sonido encendido.", "Sonido apagado.", "Sonido encendido."}));
}

TEST_F(ProgramTest, AppliesAndSavesWhatIsChosen) {
    Start();
    QString overSettings;
    Person person([&overSettings](QWidget& window) {
        Person reader([&overSettings](QWidget& manual) { overSettings = manual.windowTitle(); });
        QTest::keyClick(window.focusWidget(), Qt::Key_F1);
        QTest::keyClick(window.findChild<QWidget*>("Pic_Velocidad"), Qt::Key_PageDown);
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    });
    QTest::keyClick(&program->Window(), Qt::Key_F3);
    EXPECT_EQ(LoadSettings(data).content.settings.Speed, 90);
    EXPECT_EQ(overSettings, "Ayuda de la aplicación");
    std::vector<Sound> sounds;
    program->Window().Shared().PlaySound = [&](Sound sound) { sounds.push_back(sound); };
    refused = "Comienza la Partida";
    Press(MenuButtons::NewGame);
    EXPECT_EQ(LoadSettings(data).content.settings.Speed, 80) << "the settings open instead of the game";
    EXPECT_EQ(std::count(sounds.begin(), sounds.end(), Sound::SettingsOpen), 1) << "as by their button";
}

}  // namespace
}  // namespace zorva::test
