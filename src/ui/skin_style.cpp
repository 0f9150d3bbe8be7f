#include "ui/skin_style.h"

#include "ui/skin_palette.h"

#include <QApplication>
#include <QStyle>
#include <QStyleFactory>

namespace Orvane {

QPalette Skin_Dialog_Palette()
{
    using namespace Skin_Palette;
    QPalette palette;
    const auto both = [&palette](QPalette::ColorRole role, const QColor& colour) {
        palette.setColor(QPalette::Active, role, colour);
        palette.setColor(QPalette::Inactive, role, colour);
    };
    palette.setColor(QPalette::All, QPalette::Window, Surface);
    palette.setColor(QPalette::All, QPalette::Base, Surface_Deep);
    palette.setColor(QPalette::All, QPalette::AlternateBase, Surface);
    palette.setColor(QPalette::All, QPalette::Button, Surface_Raised);
    palette.setColor(QPalette::All, QPalette::ToolTipBase, Surface_Deep);
    palette.setColor(QPalette::All, QPalette::Light, Surface_Raised.lighter(130));
    palette.setColor(QPalette::All, QPalette::Midlight, Surface_Raised);
    palette.setColor(QPalette::All, QPalette::Mid, Surface);
    palette.setColor(QPalette::All, QPalette::Dark, Surface_Deep);
    palette.setColor(QPalette::All, QPalette::Shadow, Outline);
    palette.setColor(QPalette::All, QPalette::Highlight, Selection);
    palette.setColor(QPalette::All, QPalette::HighlightedText, Panel_Hover);
    palette.setColor(QPalette::All, QPalette::Link, Accent);
    palette.setColor(QPalette::All, QPalette::LinkVisited, Display_Dim);
    palette.setColor(QPalette::All, QPalette::BrightText, Accent);
    palette.setColor(QPalette::All, QPalette::PlaceholderText, Panel_Dim);
    palette.setColor(QPalette::All, QPalette::ToolTipText, Panel_Text);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        both(role, Panel_Text);
    // What cannot be used now is drawn in the dim graphite text.
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Panel_Dim.darker(130));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, Surface_Raised);
    return palette;
}

void Apply_Skin_Style()
{
    // Fusion draws every control from the palette, whatever the desktop's
    // own style, so the dialogs take the skin's colours everywhere.
    if (QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion")))
        QApplication::setStyle(fusion);
    QApplication::setPalette(Skin_Dialog_Palette());
}

} // namespace Orvane
