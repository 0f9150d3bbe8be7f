#include "app/program_files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#ifndef ORVANE_RELATIVE_DATA_DIR
#define ORVANE_RELATIVE_DATA_DIR "../share/orvane"
#endif

namespace Orvane {

namespace {

const QString Config_Name = QStringLiteral("orvan.ini");
const QString Language_Name = QStringLiteral("Lang.ini");
const QString Demo_Name = QStringLiteral("demo/demo.orx");
const QString Own_Folder = QStringLiteral("orvane");
// Beside orvan.ini once the demo has been offered.
const QString Started_Marker = QStringLiteral(".orvane-started");

QString In(const QString& folder, const QString& name) { return QDir(folder).filePath(name); }

// The player rewrites orvan.ini through a file beside it, so the folder must
// take new files too.
bool Is_Writable_Config(const QString& folder)
{
    const QFileInfo file(In(folder, Config_Name));
    return file.isFile() && file.isWritable() && QFileInfo(folder).isWritable();
}

// The first folder holding name; empty when none does.
QString First_Holding(const QStringList& folders, const QString& name)
{
    for (const QString& folder : folders) {
        if (QFileInfo::exists(In(folder, name)))
            return folder;
    }
    return {};
}

} // namespace

QString Program_Files::Config_File() const { return In(Config_Folder, Config_Name); }

QString Program_Files::Config_To_Read() const
{
    return Portable || QFileInfo::exists(Config_File()) ? Config_File() : First_Config;
}

Program_Places Running_Program_Places()
{
    Program_Places places;
    places.Program_Folder = QCoreApplication::applicationDirPath();
    places.User_Config_Home = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    places.User_Data_Home = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    // The prefix the executable was installed under comes first, so that a
    // staged or /usr/local installation finds its own files.
    places.Data_Folders << QDir::cleanPath(In(places.Program_Folder, QStringLiteral(ORVANE_RELATIVE_DATA_DIR)));
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        if (folder != places.User_Data_Home)
            places.Data_Folders << In(folder, Own_Folder);
    }
    return places;
}

Program_Files Portable_Program_Files(const QString& program_folder)
{
    Program_Files files;
    files.Program_Folder = program_folder;
    files.Config_Folder = program_folder;
    files.Language_Folder = program_folder;
    const QString demo = In(program_folder, Demo_Name);
    files.Demo_Playlist = QFileInfo::exists(demo) ? demo : QString();
    return files;
}

Program_Files Locate_Program_Files(const Program_Places& places)
{
    if (Is_Writable_Config(places.Program_Folder))
        return Portable_Program_Files(places.Program_Folder);

    Program_Files files;
    files.Portable = false;
    files.Program_Folder = places.Program_Folder;
    files.Config_Folder = In(places.User_Config_Home, Own_Folder);
    // A read-only unpacked folder still ships its files beside the executable.
    const QStringList shipped = places.Data_Folders + QStringList{places.Program_Folder};
    const QString first_config_folder = First_Holding(shipped, Config_Name);
    files.First_Config = first_config_folder.isEmpty() ? QString() : In(first_config_folder, Config_Name);
    const QString language_folder =
        First_Holding(QStringList{In(places.User_Data_Home, Own_Folder)} + shipped, Language_Name);
    // Without any Lang.ini the load fails as the design says, from the program's folder.
    files.Language_Folder = language_folder.isEmpty() ? places.Program_Folder : language_folder;
    const QString demo_folder = First_Holding(shipped, Demo_Name);
    files.Demo_Playlist = demo_folder.isEmpty() ? QString() : In(demo_folder, Demo_Name);
    return files;
}

Program_Files Locate_Program_Files() { return Locate_Program_Files(Running_Program_Places()); }

bool Provide_User_Config(const Program_Files& files)
{
    if (files.Portable || QFileInfo::exists(files.Config_File()))
        return true;
    if (files.First_Config.isEmpty() || !QDir().mkpath(files.Config_Folder))
        return false;
    if (!QFile::copy(files.First_Config, files.Config_File()))
        return false;
    // The shipped file is read-only; the user's copy is theirs to rewrite.
    return QFile::setPermissions(files.Config_File(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup
                                                          | QFile::ReadOther);
}

bool Take_First_Start(const Program_Files& files)
{
    QFile marker(In(files.Config_Folder, Started_Marker));
    if (marker.exists())
        return false;
    // When the marker cannot be written every start counts as the first:
    // the demo keeps being offered rather than never.
    if (marker.open(QIODevice::WriteOnly))
        marker.close();
    return true;
}

} // namespace Orvane
