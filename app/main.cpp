#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>

#include "app/BoardAccessibility.h"
#include "app/DataFolder.h"
#include "app/EndSignals.h"
#include "app/KeyRepeats.h"
#include "app/Program.h"
#include "app/SingleInstance.h"
#include "app/StartOptions.h"

namespace {

// A move may be under way, deep inside nested event loops. The file holds everything worth keeping, so
// the program ends without unwinding them.
void SaveAndEnd(zorva::Program& program) {
    program.SaveAtEnd();
    std::_Exit(0);
}

// Qt's messages while it looks for a display. Qt would abort after the fatal one.
void TellMissingDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg) return;
    std::fputs(
        "zorva32: no se puede abrir la ventana: no hay pantalla (DISPLAY, WAYLAND_DISPLAY) o Qt no "
        "puede usarla.\n",
        stderr);
    std::_Exit(1);
}

}  // namespace

int main(int argc, char** argv) {
    if (const auto status = zorva::AnswerOptions({argv + 1, argv + argc})) return *status;
    zorva::HoldBackEndSignals();  // before Qt starts any thread
    const QtMessageHandler usual = qInstallMessageHandler(TellMissingDisplay);
    QApplication application(argc, argv);
    qInstallMessageHandler(usual);
    QApplication::setApplicationName("zorva32");
    QApplication::setApplicationDisplayName("Zorva");
    QApplication::setApplicationVersion(ZORVA_VERSION);
    QApplication::setDesktopFileName("zorva32");

    const std::filesystem::path folder = QApplication::applicationDirPath().toStdString();
    const std::filesystem::path dataFolder = zorva::ChooseDataFolder(folder);
    zorva::SingleInstance instance(dataFolder);
    if (instance.HasCalledFirst()) return 0;

    zorva::KeyRepeats repeats;
    application.installEventFilter(&repeats);
    zorva::InstallBoardAccessibility();
    zorva::Program program(folder, dataFolder);
    program.Ended = [] { QCoreApplication::exit(0); };
    zorva::OnEndSignal([&program] { SaveAndEnd(program); });
    zorva::OnQuitRequest([&program] { SaveAndEnd(program); });
    if (!instance.MayPlay()) {
        program.TellFilesInUse();
        return 1;
    }
    instance.OnSecondStart([&program] { program.ComeToFront(); });
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &application,
                     [&program] { program.SaveAtEnd(); });
    // Started from the event loop: the title and the game run loops of their own inside it.
    QTimer::singleShot(0, &program.Window(), [&program] { program.Start(); });
    return QApplication::exec();
}
