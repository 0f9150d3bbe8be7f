#pragma once

#include <QString>
#include <QStringList>

namespace Orvane {

// Where the running program finds its files. Every part of the program that
// reads or writes orvan.ini, Lang.ini or the demo asks this one place.
//
// Portable mode (a build folder, a folder a user unpacked): orvan.ini beside
// the executable can be written, so everything lives in the program's
// folder. Installed mode (otherwise): Lang.ini, the first orvan.ini and the
// demo come from the installed data folder, each user's orvan.ini lives in
// their configuration folder, and a Lang.ini in the user's data folder
// replaces the shipped one.
struct Program_Files {
    bool Portable = true;
    QString Program_Folder;   // the executable's folder: a FILE named without "/" is looked for here
    QString Config_Folder;    // holds the orvan.ini read at start and written at quit
    QString First_Config;     // installed mode: the shipped orvan.ini a user's copy starts from
    QString Language_Folder;  // holds the Lang.ini to load
    QString Demo_Playlist;    // empty when none is shipped

    QString Config_File() const;
    // The file a reader that must not write looks at: the user's orvan.ini,
    // or the shipped one before the user's first start.
    QString Config_To_Read() const;
};

// The folders the choice is made from, apart so that tests can pick them.
struct Program_Places {
    QString Program_Folder;
    QString User_Config_Home;  // $XDG_CONFIG_HOME
    QString User_Data_Home;    // $XDG_DATA_HOME
    // Installed data folders, searched in order (the one beside the
    // installed executable first, then the system's data folders).
    QStringList Data_Folders;
};

// The places of the running process.
Program_Places Running_Program_Places();

// Everything in program_folder.
Program_Files Portable_Program_Files(const QString& program_folder);

// Decides the mode and the paths; reads the file system, writes nothing.
Program_Files Locate_Program_Files(const Program_Places& places);
Program_Files Locate_Program_Files();

// Installed mode: copies the first orvan.ini to the user's configuration
// folder when the user has none yet. False only when that copy failed.
bool Provide_User_Config(const Program_Files& files);

// True once per configuration folder: on the first start of the user (or of
// the portable folder), which shows the demo. Leaves a marker beside
// orvan.ini so that later starts open an empty player.
bool Take_First_Start(const Program_Files& files);

} // namespace Orvane
