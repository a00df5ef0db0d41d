#pragma once

#include <QLabel>
#include <QWidget>

/// The state of the controller link as a shape with a word: filled circle, half ring, cross, empty
/// ring. It follows Robot by itself.
class LinkLamp : public QWidget {
    Q_OBJECT
public:
    explicit LinkLamp(QWidget *parent = nullptr);

    QString text() const;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void refresh();
};

/// Says that no real robot moves. Shown while the controller is embedded or greets as simulated.
class SimulatedMark : public QLabel {
    Q_OBJECT
public:
    explicit SimulatedMark(QWidget *parent = nullptr);

    void setEmbedded(bool embedded);

signals:
    void clicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void refresh();

    bool m_embedded = false;
};
