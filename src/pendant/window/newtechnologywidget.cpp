#include "newtechnologywidget.h"

#include "displaysize.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QString pageName(TechWidgetType type)
{
    switch (type) {
    case TECH_WELDING:
        return NewTechnologyWidget::tr("焊接");
    case TECH_VISION:
        return NewTechnologyWidget::tr("视觉");
    case TECH_SCREW:
        return NewTechnologyWidget::tr("电批");
    }
    return NewTechnologyWidget::tr("其他工艺");
}

} // namespace

NewTechnologyWidget::NewTechnologyWidget(QWidget *parent)
    : QWidget(parent), m_name(new QLabel(this)), m_text(new QLabel(this)),
      m_back(new QPushButton(this))
{
    hide();
    setObjectName(QStringLiteral("NewTechnologyWidget"));
    resize(DisplaySize::contentWidth, DisplaySize::contentHeight);
    m_name->setObjectName(QStringLiteral("hostedPageName"));
    m_text->setObjectName(QStringLiteral("hostedPageText"));
    m_back->setObjectName(QStringLiteral("hostedPageBack"));

    QFont large = m_name->font();
    large.setPointSize(20);
    m_name->setFont(large);
    m_name->setAlignment(Qt::AlignCenter);
    m_text->setAlignment(Qt::AlignCenter);
    m_text->setWordWrap(true);
    m_back->setMinimumSize(160, 48);

    auto *layout = new QVBoxLayout(this);
    layout->addStretch(2);
    layout->addWidget(m_name);
    layout->addSpacing(12);
    layout->addWidget(m_text);
    layout->addStretch(3);
    layout->addWidget(m_back, 0, Qt::AlignRight);

    connect(m_back, &QPushButton::clicked, this, &NewTechnologyWidget::goBack);
    retranslate();
}

NewTechnologyWidget *NewTechnologyWidget::getInstance()
{
    static NewTechnologyWidget *const instance = new NewTechnologyWidget;
    return instance;
}

void NewTechnologyWidget::showWgt(TechWidgetType type)
{
    m_type = type;
    retranslate();
    show();
    raise();
}

void NewTechnologyWidget::goBack()
{
    hide();
    emit backRequested();
}

void NewTechnologyWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void NewTechnologyWidget::retranslate()
{
    m_name->setText(pageName(m_type));
    m_text->setText(tr("此处显示“%1”页面，由相应的工艺组件提供。\n当前设备未安装该组件。")
                        .arg(pageName(m_type)));
    m_back->setText(tr("返回"));
}
