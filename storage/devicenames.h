// Names that no file can have where the names of FAT hold.
#pragma once

#include <QString>

namespace devicenames
{

/** True for a name that stands for a device of the computer, such as "con.mid", with any suffix. */
bool isDevice(const QString &name);

} // namespace devicenames
