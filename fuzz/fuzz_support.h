#pragma once

#include "config/settings.h"
#include "language/text_table.h"

#include <QString>

#include <cstddef>
#include <cstdint>

namespace Orvane::Fuzz {

// Starts the application object the readers need (fonts for the subtitle
// layout) without a display, and a private folder in memory for the inputs.
void Start(int* argc, char*** argv);

// Start, then reads the shipped orvan.ini and language file once, as the
// program does at start-up, for readers that take settings and texts.
struct Shipped {
    Settings settings;
    Text_Table texts;
};
const Shipped& Start_With_Shipped_Settings(int* argc, char*** argv);

// Writes the input to name inside the private folder and returns its path:
// the readers take a path, exactly as the program hands them one.
QString Write_Input(const QString& name, const uint8_t* data, size_t size);

// The folder the inputs are written to.
QString Input_Folder();

// A folder holding the shipped language file, for readers that load it.
QString Shipped_Language_Folder();

} // namespace Orvane::Fuzz
