#pragma once

#include <QWidget>
#include <functional>

class EventModel;
class LineEditWidget;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableView;

/// The journal on screen: newest first, filtered by kind and message id, exported as a text file.
class EventPage : public QWidget {
    Q_OBJECT
public:
    /// So many exports are kept in their directory; the oldest goes.
    static constexpr int kExports = 20;

    explicit EventPage(QWidget *parent = nullptr);

    EventModel *model() const { return m_model; }
    /// Names for message ids; an empty text for an id without one.
    void setMessageNames(std::function<QString(quint16)> names);
    /// Where exports go; the user's application data without one.
    void setExportDirectory(const QString &directory) { m_directory = directory; }

public slots:
    /// Writes `events-<date>-<time>.txt` and says where, or why not. Returns the path; empty when
    /// it failed.
    QString exportJournal();

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void retranslate();
    void refreshCount();
    void showDetail();

    EventModel *m_model;
    QTableView *m_table;
    QComboBox *m_kind;
    LineEditWidget *m_id;
    QLabel *m_kindLabel;
    QLabel *m_idLabel;
    QLabel *m_count;
    QPushButton *m_export;
    QPlainTextEdit *m_detail;
    QString m_directory;
};
