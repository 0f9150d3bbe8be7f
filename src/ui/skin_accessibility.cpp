#include "ui/skin_accessibility.h"

#include "ui/option_pair.h"
#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_picture.h"
#include "ui/skin_progress_track.h"

#include <QAccessibleWidget>

#include <cmath>

namespace Orvane {

namespace {

// A control that a click acts on: the press action goes through the
// control's own Press(), which emits what a mouse click emits, so a
// screen reader's press follows the same rules as the mouse.
template <typename Control>
class Pressable_Accessible : public QAccessibleWidget {
public:
    explicit Pressable_Accessible(Control* control) : QAccessibleWidget(control, QAccessible::Button) {}

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Name)
            return Name();
        return QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override { return {pressAction()}; }

    void doAction(const QString& action) override
    {
        if (action == pressAction() && widget()->isEnabled())
            static_cast<Control*>(widget())->Press();
    }

    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QString Name() const;
};

// A picture button is named by its tool tip unless it was given a name.
template <>
QString Pressable_Accessible<Picture_Button>::Name() const
{
    const QString given = widget()->accessibleName();
    return given.isEmpty() ? widget()->toolTip() : given;
}

// A label used as a button is named by its caption.
template <>
QString Pressable_Accessible<Skin_Label>::Name() const
{
    const QString given = widget()->accessibleName();
    return given.isEmpty() ? static_cast<const Skin_Label*>(widget())->text() : given;
}

// A control showing an amount: the progress track (a slider, its value the
// lit part in percent of the track) and a level picture (the volume gauge).
class Value_Accessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    Value_Accessible(QWidget* widget, QAccessible::Role role) : QAccessibleWidget(widget, role) {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return Value(); }
    // Set by the player alone: the amount follows the media, not the reader.
    void setCurrentValue(const QVariant&) override {}
    QVariant maximumValue() const override { return Maximum(); }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

private:
    int Value() const
    {
        if (auto* track = qobject_cast<const Skin_Progress_Track*>(widget()))
            return track->Fill_Percent();
        return static_cast<const Skin_Picture*>(widget())->Level();
    }

    int Maximum() const
    {
        if (qobject_cast<const Skin_Progress_Track*>(widget()))
            return 100;
        return static_cast<const Skin_Picture*>(widget())->Level_Maximum();
    }
};

// An option of the skin: a check box named by its caption, checked while its
// mark shows; pressing it does what a release on it does.
class Option_Accessible : public QAccessibleWidget {
public:
    explicit Option_Accessible(Option_Pair* option) : QAccessibleWidget(option, QAccessible::CheckBox) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = static_cast<const Option_Pair*>(widget())->Is_On();
        return state;
    }

    QStringList actionNames() const override { return {toggleAction()}; }

    void doAction(const QString& action) override
    {
        if ((action == toggleAction() || action == pressAction()) && widget()->isEnabled())
            static_cast<Option_Pair*>(widget())->Toggle();
    }

    QStringList keyBindingsForAction(const QString&) const override { return {}; }
};

QAccessibleInterface* Skin_Interface(const QString& class_name, QObject* object)
{
    if (class_name == QLatin1String(Option_Pair::staticMetaObject.className()))
        return new Option_Accessible(static_cast<Option_Pair*>(object));
    if (class_name == QLatin1String(Picture_Button::staticMetaObject.className()))
        return new Pressable_Accessible<Picture_Button>(static_cast<Picture_Button*>(object));
    if (class_name == QLatin1String(Skin_Label::staticMetaObject.className())) {
        auto* label = static_cast<Skin_Label*>(object);
        // Plain labels are Qt's own static texts.
        return label->Is_Button() ? new Pressable_Accessible<Skin_Label>(label) : nullptr;
    }
    if (class_name == QLatin1String(Skin_Progress_Track::staticMetaObject.className()))
        return new Value_Accessible(static_cast<QWidget*>(object), QAccessible::Slider);
    if (class_name == QLatin1String(Skin_Picture::staticMetaObject.className())) {
        auto* picture = static_cast<Skin_Picture*>(object);
        if (picture->Level_Maximum() > 0)
            return new Value_Accessible(picture, QAccessible::ProgressBar);
    }
    // The program's own top-level windows are frameless widgets, which Qt
    // would announce as mere panels: they are windows, named by their titles.
    if (class_name.startsWith(QLatin1String("Orvane::")) && object->isWidgetType()
        && static_cast<QWidget*>(object)->isWindow())
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Window);
    return nullptr;
}

} // namespace

void Ensure_Skin_Accessibility()
{
    static const bool installed = [] {
        QAccessible::installFactory(&Skin_Interface);
        return true;
    }();
    (void)installed;
}

} // namespace Orvane
