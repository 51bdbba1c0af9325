#include "devindex/samefile.h"

#include <QFile>

#include <filesystem>
#include <system_error>

bool isSameFile(const QString &first, const QString &second)
{
    std::error_code error;
    return std::filesystem::equivalent(QFile::encodeName(first).constData(),
                                       QFile::encodeName(second).constData(), error) &&
           !error;
}
