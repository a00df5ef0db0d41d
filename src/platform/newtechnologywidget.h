#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

/// The sibling pages: kind of page that the host is to show.
enum TechWidgetType { TECH_WELDING = 2, TECH_VISION = 3, TECH_SCREW = 4 };

/// Host of the welding, vision and electric-screwdriver pages, which a sibling component provides.
/// It says which page stands here and offers the way back to the process menu.
class NewTechnologyWidget : public QWidget {
    Q_OBJECT
public:
    static NewTechnologyWidget *getInstance();

    void showWgt(TechWidgetType type);
    /// The kind that was shown last; the welding page before the first showWgt().
    TechWidgetType currentType() const { return m_type; }

signals:
    void backRequested();

protected:
    void changeEvent(QEvent *event) override;

private:
    explicit NewTechnologyWidget(QWidget *parent = nullptr);
    void goBack();
    void retranslate();

    TechWidgetType m_type = TECH_WELDING;
    QLabel *m_name;
    QLabel *m_text;
    QPushButton *m_back;
};
