// Long lists in a message box.
#pragma once

#include <QStringList>

QT_BEGIN_NAMESPACE
class QMessageBox;
QT_END_NAMESPACE

/**
 * Puts the lines behind the box's button for details, where they scroll; Qt's own field for them is
 * as narrow as the box's text. No lines mean no button.
 */
void setDetails(QMessageBox &box, const QStringList &lines);
