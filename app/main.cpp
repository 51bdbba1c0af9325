// Start of the program.
#include "app/mainwindow.h"
#include "app/startup.h"

#include <QApplication>
#include <QTranslator>

int main(int argc, char *argv[])
{
    Startup startup;
    startup.setUpLog();

    QApplication application(argc, argv);
    QTranslator programTranslator;
    QTranslator qtTranslator;
    startup.setUpTranslation(programTranslator, qtTranslator);

    MainWindow window;
    window.show();
    return QApplication::exec();
}
