#pragma once

#include <QVector>
#include <QWidget>
#include <functional>

class QCloseEvent;
class QEventLoop;
class QGridLayout;
class QLabel;
class QVBoxLayout;

/// What the operator is told and asked when the pendant cannot start as usual: a page as large as
/// the pendant's screen, shown before there is a main window.
class StartPage : public QWidget {
    Q_OBJECT
public:
    struct Detail {
        QString label;
        QString value;
    };
    struct Choice {
        int id; ///< what ask() returns; the key is named "startChoice<id>"
        QString text;
    };
    struct Content {
        QString heading;
        QString explanation;
        QVector<Detail> details;
        QVector<Choice> choices; ///< one key below the other; the last two stand side by side
    };
    /// Makes the content in the language that is current when it is called.
    using Maker = std::function<Content()>;

    explicit StartPage(QWidget *parent = nullptr);

    /// Shows the page and waits for a touch. In several languages ("zh", "en") each text stands
    /// below or beside the same in the other. `otherwise` is returned when the program is told to
    /// end meanwhile.
    int ask(const QStringList &languages, const Maker &maker, int otherwise);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void fill(const Content &content);
    void addChoices(const QVector<Choice> &choices);

    QVBoxLayout *m_column;
    QLabel *m_heading;
    QLabel *m_explanation;
    QWidget *m_details = nullptr;
    QWidget *m_choices = nullptr;
    QEventLoop *m_waiting = nullptr;
    int m_chosen = 0;
};
