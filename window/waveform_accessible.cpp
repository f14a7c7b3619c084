#include "window/waveform_accessible.h"

#include "window/waveform_strip.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace orvanta {

namespace {

/// A slider over the clip's seconds.
class WaveformAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit WaveformAccessible(WaveformStrip* strip)
        : QAccessibleWidget(strip, QAccessible::Slider),
          m_strip(strip)
    {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }
    /// The value in words stands in the description, too: not every reader asks for the first.
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        const bool isValue = kind == QAccessible::Value || kind == QAccessible::Description;
        return isValue ? m_strip->spokenValue() : QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QVariant currentValue() const override { return m_strip->place(); }
    void setCurrentValue(const QVariant& value) override { m_strip->askPlace(value.toDouble()); }
    [[nodiscard]] QVariant maximumValue() const override { return m_strip->length(); }
    [[nodiscard]] QVariant minimumValue() const override { return 0.0; }
    [[nodiscard]] QVariant minimumStepSize() const override { return 1.0; }

private:
    WaveformStrip* m_strip;
};

} // namespace

static QAccessibleInterface* accessibleWaveform(const QString& /*className*/, QObject* object)
{
    auto* strip = qobject_cast<WaveformStrip*>(object);
    return strip != nullptr ? new WaveformAccessible(strip) : nullptr;
}

void announceWaveforms()
{
    static const bool kOnce = (QAccessible::installFactory(accessibleWaveform), true);
    Q_UNUSED(kOnce)
}

} // namespace orvanta
