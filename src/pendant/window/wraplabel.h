#pragma once

#include <QLabel>

/// A label whose text breaks between words, and within a word that is wider than the label: names,
/// paths and whatever comes from files. It is as high as the lines that it is made for; a text that
/// needs more gets a smaller font, and what does not fit then is cut off.
class WrapLabel : public QLabel {
public:
    explicit WrapLabel(int points, int lines, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// The font in which the text is drawn.
    QFont fittingFont() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRect inside() const;

    int m_points;
    int m_lines;
};
