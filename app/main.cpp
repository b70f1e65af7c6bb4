#include <QApplication>
#include <QIcon>

#include "app/Program.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("zorva32");
    QApplication::setApplicationDisplayName("Zorva");
    QApplication::setWindowIcon(QIcon(":/icon/zorva.svg"));
    zorva::Program program;
    program.Start();
    return QApplication::exec();
}
