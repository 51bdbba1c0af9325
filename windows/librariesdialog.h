// The libraries that the program stands on.
#pragma once

#include "windows/infotabledialog.h"

/** Their names, licences and what they are for: those that this build is linked with. */
class LibrariesDialog : public InfoTableDialog
{
    Q_OBJECT

public:
    explicit LibrariesDialog(QWidget *parent = nullptr);

private:
    static QList<QStringList> rows();
};
