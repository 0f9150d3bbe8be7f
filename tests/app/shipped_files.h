#pragma once

#include "support/temp_folder.h"

#include <QFile>

namespace Orvane::Test {

// Makes folder a portable program folder: the shipped language file beside a
// copy of the first orvan.ini that the program may rewrite.
inline void Copy_Shipped_Files(const Temp_Folder& folder)
{
    QFile::copy(QStringLiteral(ORVANE_SOURCE_DIR "/resources/Lang.ini"), folder.File("Lang.ini"));
    QFile::copy(QStringLiteral(ORVANE_SOURCE_DIR "/resources/orvan.ini"), folder.File("orvan.ini"));
    QFile::setPermissions(folder.File("orvan.ini"), QFile::ReadOwner | QFile::WriteOwner);
}

} // namespace Orvane::Test
