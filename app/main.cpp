// Start of the program.
#include "app/mainwindow.h"
#include "app/startup.h"
#include "storage/standardhandles.h"
#include "windows/visibleoutlines.h"

#include <QApplication>
#include <QIcon>

namespace
{

/** The icon in every size that a desktop asks for, so that none has to be scaled. */
QIcon applicationIcon()
{
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512})
        icon.addFile(QStringLiteral(":/imgs/kavena-pc_%1.png").arg(size));
    return icon;
}

} // namespace

int main(int argc, char *argv[])
{
    fillStandardHandles();
    Startup startup;
    startup.setUpLog();

    // The desktop's own choosers speak the language of the desktop, not the one chosen here.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QApplication::setWindowIcon(applicationIcon());
    QApplication::setStyle(new VisibleOutlines);
    // Wayland knows a window's icon and its place in the menu by this name only.
    QApplication::setDesktopFileName(QStringLiteral("org.kavena.KavenaPC"));
    startup.setUpTranslation();

    MainWindow window;
    window.show();
    window.tellMissingLibrary();
    return QApplication::exec();
}
