#include "windows/acceptafterwork.h"

#include <QApplication>
#include <QDialog>

void acceptAfterWork(QDialog &dialog)
{
    const bool isActive = QGuiApplication::applicationState() == Qt::ApplicationActive;
    dialog.accept();
    if (isActive && dialog.parentWidget() != nullptr)
        dialog.parentWidget()->activateWindow();
}
