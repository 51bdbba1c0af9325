// The questions of the four-answer dialog, for workflows that know nothing of windows.
#pragma once

#include "library/answer.h"

#include <QString>

namespace confirmation
{
/** Asks whether a song of another publisher may be changed. Closing the dialog counts as yes. */
Answer askToChange(const QString &fileName);

/** Asks whether an existing file may be replaced. Closing the dialog counts as yes. */
Answer askToReplace(const QString &target);

/** Asks what the message says about the file. Closing the dialog counts as yes. */
Answer ask(const QString &fileName, const QString &message);

/** Asks whether songs may be changed though that cannot be taken back. Closing it counts as no. */
bool askToGoOnWithoutHistory(const QString &reason);
} // namespace confirmation
