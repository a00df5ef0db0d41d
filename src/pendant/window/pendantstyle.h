#pragma once

#include <QProxyStyle>

class QApplication;

/// The general look of the pendant: a calm grey ground, flat rounded buttons, targets that a gloved
/// finger hits (buttons and fields at least 40 pixels high), marks large enough at arm's length.
class PendantStyle : public QProxyStyle {
    Q_OBJECT
public:
    PendantStyle();

    static QPalette palette();
    /// Gives the application this style with its palette and font.
    static void apply(QApplication &application);

    using QProxyStyle::polish;
    void polish(QWidget *widget) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    QPalette standardPalette() const override { return palette(); }
    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
                    const QWidget *widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr,
                  const QWidget *widget = nullptr, QStyleHintReturn *data = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget = nullptr) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                         SubControl subControl, const QWidget *widget = nullptr) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option,
                         const QWidget *widget = nullptr) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget = nullptr) const override;
};
