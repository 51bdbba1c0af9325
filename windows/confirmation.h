// The questions of the four-answer dialog, for workflows that know nothing of windows.
#pragma once

#include "library/answer.h"

#include <QString>

namespace confirmation
{
/** Whether a song of another publisher may be changed. Closing the dialog counts as yes. */
Answer askToChange(const QString &fileName);

/** Whether the file that is there already may be replaced. Closing the dialog counts as yes. */
Answer askToReplace(const QString &target);

/** Asks what the message says about the file. Closing the dialog counts as yes. */
Answer ask(const QString &fileName, const QString &message);
} // namespace confirmation
