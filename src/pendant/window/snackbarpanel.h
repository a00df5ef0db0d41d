#pragma once

#include <QList>
#include <QStringList>
#include <QTimer>
#include <QWidget>

/// One message on screen: a symbol and a word on a ground of the kind's colour, and the text. Its
/// object name is "snackbar".
class SnackbarPanel : public QWidget {
    Q_OBJECT
public:
    explicit SnackbarPanel(QWidget *parent);

    /// Shows `text` from now on for `duration` milliseconds; below 0 without an end.
    void start(const QString &text, int duration, int kind);
    /// It stays until it is touched.
    void setStanding(bool standing) { m_standing = standing; }
    bool isStanding() const { return m_standing; }
    QString text() const { return m_text; }
    bool isEndless() const { return m_endless; }
    int heightAt(int width) const;

signals:
    /// Its time is over, or it was touched.
    void done();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QRect textRect(int width) const;

    QString m_text;
    int m_kind = 1;
    bool m_endless = false;
    bool m_standing = false;
    QTimer m_timer;
};

/// The messages of one host widget, at its foot. It is itself no widget, so that it covers nothing
/// between the panels.
class SnackbarStack : public QObject {
    Q_OBJECT
public:
    struct Message {
        QString text;
        int duration; ///< milliseconds; below 0 without an end
        int kind;
        bool standing; ///< stays until it is touched; others without an end give way
    };

    /// The stack of `host`; the messages of another host are taken away.
    static SnackbarStack *of(QWidget *host);
    static SnackbarStack *current();

    void add(const Message &message);
    void dismissAll();
    QStringList shownTexts() const;
    QStringList waitingTexts() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit SnackbarStack(QWidget *host);

    void show(const Message &message);
    void remove(SnackbarPanel *panel);
    void fillUp();
    int transientPanels() const;
    void place();

    QWidget *m_host;
    QList<SnackbarPanel *> m_panels; ///< oldest first
    QList<Message> m_waiting;
};
