#pragma once

#include "subtitles/subtitle_display.h"
#include "subtitles/subtitle_window_control.h"

#include <QColor>
#include <QFont>
#include <QMetaObject>
#include <QPainterPath>
#include <QPointer>
#include <QRegion>
#include <QWidget>
#include <functional>

class QLabel;
class QScreen;

namespace Orvane {

class Text_Table;
struct Settings;
struct Subtitle_Table;

// Frm_Subtitle: a frameless window as wide as the screen on its bottom edge,
// above every other window, that shows the current subtitle entry in two
// lines. In transparent mode the window is cut to the outline of the letters
// (grown by a dark edge), so only the letters float over the picture and the
// desktop; in opaque mode Lbl_Subtitle shows the two lines on a dark band.
// It never takes the keyboard focus from the player's windows, and clicks on
// the letters go through to the window beneath (the player bar sits there).
//
// Loading (Show) reads the font, colour and mode from the settings; the
// lines' left edges and sizes come from the subtitle table, laid out for the
// screen's width when the file was read.
class Frm_Subtitle : public QWidget, public Subtitle_Display, public Subtitle_Window_Control {
    Q_OBJECT
public:
    Frm_Subtitle(const Settings& settings, const Text_Table& texts, const Subtitle_Table& table,
                 QWidget* parent = nullptr);
    ~Frm_Subtitle() override;

    // The player's keyboard dispatcher, for key presses that still reach
    // this window.
    void Set_Key_Handler(std::function<void(int key_code)> handler) { key_handler_ = std::move(handler); }
    // The screen the window belongs on (the display window's); the primary
    // screen when not set or when it gives none.
    void Set_Screen_Source(std::function<QScreen*()> source) { screen_source_ = std::move(source); }

    // The form load and show; unloading clears and hides.
    void Show() override;
    void Unload() override;
    bool Is_Shown() const override { return shown_; }

    // Shows the two lines of entry n; two empty lines clear the window.
    void Show_Subtitle(const QString& line1, const QString& line2, int n) override;

    // Takes the font, colour and mode of the settings again and re-lays the
    // window, keeping the lines shown (after the configuration changed).
    void Apply_Settings();
    // Full screen width, on the bottom edge of the screen.
    void Place_On_Screen();

    QColor Text_Color() const { return color_; }
    // The visible area of the window; empty while nothing is shown.
    QRegion Shape() const { return shape_; }
    QLabel* Lbl_Subtitle() const { return label_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QScreen* Target_Screen() const;
    void Follow_Screen(QScreen* screen);
    void Resolve_Color();
    void Draw_Lines();
    QRegion Opaque_Band() const;
    void Apply_Shape(const QRegion& shape);

    const Settings& settings_;
    const Text_Table& texts_;
    const Subtitle_Table& table_;
    QLabel* label_;
    std::function<void(int)> key_handler_;
    std::function<QScreen*()> screen_source_;
    QPointer<QScreen> followed_screen_;
    QMetaObject::Connection screen_connection_;

    bool shown_ = false;
    bool transparent_ = false;
    bool color_warned_ = false;
    QColor color_ = Qt::white;
    QString line1_;
    QString line2_;
    int entry_ = 1;
    QFont font_;              // at the size of the entry shown
    QPainterPath outline_;    // the letters, in transparent mode
    QRegion shape_;
};

} // namespace Orvane
