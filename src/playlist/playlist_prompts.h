#pragma once

#include <cstdint>

namespace Orvane {

class Text_Table;

// How the playlist speaks to the user, by text number: it reports what it
// refused and asks questions, and the window side puts them in boxes.
class Playlist_Prompts {
public:
    virtual ~Playlist_Prompts() = default;
    // Tells why a file was refused.
    virtual void Refuse(int16_t text_number) = 0;
    // Asks a question answered with OK or Cancel; true for OK.
    virtual bool Confirm(int16_t text_number) = 0;
};

// The prompts in the program's one message box.
class Message_Box_Prompts : public Playlist_Prompts {
public:
    explicit Message_Box_Prompts(const Text_Table& texts) : texts_(texts) {}
    void Refuse(int16_t text_number) override;
    bool Confirm(int16_t text_number) override;

private:
    const Text_Table& texts_;
};

} // namespace Orvane
