#include "targetchooser.h"

#include "setfontsize.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPushButton>

TargetChooser::TargetChooser(const QString &name, QWidget *parent)
    : QWidget(parent), m_buttons(new QButtonGroup(this))
{
    setObjectName(name);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    for (int i = 1; i <= 9; ++i) {
        auto *button = new QPushButton(QString::number(i), this);
        button->setObjectName(QStringLiteral("%1_%2").arg(name).arg(i));
        button->setCheckable(true);
        button->setFont(SetFontSize::setSize(16));
        button->setFixedSize(44, 48);
        m_buttons->addButton(button, i);
        layout->addWidget(button);
    }
    setValue(1);
}

int TargetChooser::value() const
{
    return m_buttons->checkedId();
}

void TargetChooser::setValue(int value)
{
    m_buttons->button(value >= 1 && value <= 9 ? value : 1)->setChecked(true);
}
