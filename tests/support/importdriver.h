// Imports through the main window.
#pragma once

#include "support/userdriver.h"
#include "support/windowundertest.h"

namespace importdriver
{

/** Lets the user pick these files with the folder button. */
inline void importThrough(WindowUnderTest &window, UserDriver &user, const QStringList &files)
{
    user.pick(files);
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
}

} // namespace importdriver
