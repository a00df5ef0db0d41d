#include "link/reply.h"
#include "link/request.h"
#include "polish/polish_p.h"
#include "robot.h"
#include "shell/buttonstyle.h"
#include "shell/fields.h"

namespace {

using Form = Ui_TechnologyWidget;

/// A parameter of a process number and what is said when its text is no number.
struct Parameter {
    Field field;
    const char *refusal;
};

/// The nine parameters, in the order of the page and of its checks. Offsets and wear are
/// millimetres, the cycle counts polishing cycles.
const Parameter kParameters[] = {
    {{&Form::toolWear, {"polish", "toolWear"}, Field::Sent::Real},
     QT_TRANSLATE_NOOP("TechnologyWidget", "参数工具磨损补偿不合理，请重新设置")},
    {{&Form::toolOffsetX, {"polish", "startToolOffset", "X"}, Field::Sent::Real},
     QT_TRANSLATE_NOOP("TechnologyWidget", "参数起点工具X方向偏移不合理，请重新设置")},
    {{&Form::toolOffsetY, {"polish", "startToolOffset", "Y"}, Field::Sent::Real},
     QT_TRANSLATE_NOOP("TechnologyWidget", "参数起点工具Y方向偏移不合理，请重新设置")},
    {{&Form::toolOffsetZ, {"polish", "startToolOffset", "Z"}, Field::Sent::Real},
     QT_TRANSLATE_NOOP("TechnologyWidget", "参数起点工具Z方向偏移不合理，请重新设置")},
    {{&Form::endtoolOffsetX, {"polish", "endToolOffset", "X"}, Field::Sent::Real},
     QT_TRANSLATE_NOOP("TechnologyWidget", "参数终点工具X方向偏移不合理，请重新设置")},
    {{&Form::endtoolOffsetY, {"polish", "endToolOffset", "Y"}, Field::Sent::Real},
     QT_TRANSLATE_NOOP("TechnologyWidget", "参数终点工具Y方向偏移不合理，请重新设置")},
    {{&Form::endtoolOffsetZ, {"polish", "endToolOffset", "Z"}, Field::Sent::Real},
     QT_TRANSLATE_NOOP("TechnologyWidget", "参数终点工具Z方向偏移不合理，请重新设置")},
    {{&Form::AutoCompensationValue, {"polish", "autoFeed", "value"}, Field::Sent::Real},
     QT_TRANSLATE_NOOP("TechnologyWidget", "参数自动补偿值不合理，请重新设置")},
    {{&Form::AutoCompensationCycle, {"polish", "autoFeed", "cycle"}, Field::Sent::Integer},
     QT_TRANSLATE_NOOP("TechnologyWidget", "参数自动补偿周期不合理，请重新设置")},
};

/// Checks the fields in their order and shows the message of the first that fails.
bool acceptFields(const Form *ui)
{
    for (const Parameter &parameter : kParameters) {
        // the cycle alone has a sign to keep, and it is looked at before the number is
        if (parameter.field.sent == Field::Sent::Integer
            && ui->AutoCompensationCycle->text().toInt() < 0) {
            fields::refuse(TechnologyWidget::tr("自动补偿周期不能为负数"));
            return false;
        }
        if (!fields::isAccepted(parameter.field, ui)) {
            fields::refuse(TechnologyWidget::tr(parameter.refusal));
            return false;
        }
    }
    return true;
}

EditPage editPage(const Form *ui)
{
    EditPage page{ui->btnPolishModify, {}};
    for (const Parameter &parameter : kParameters)
        page.fields.append(fields::widget(parameter.field, ui));
    return page;
}

} // namespace

TechnologyWidget::Polish::Polish(const Form *ui) : page(editPage(ui)) { }

void TechnologyWidget::initPolishInterface()
{
    polishPages = addPackage<Polish>(packages, ui);
    setReturnButtonSheet({ui->m_pBtnPolishReturn, ui->btnPolishReturn, ui->btnPolishModify});

    connect(robot, &Robot::robot_Polish_Para, this, &TechnologyWidget::updatePolishParam);
    connect(ui->m_pBtnPolishReturn, &QPushButton::clicked, this,
            &TechnologyWidget::return_mainPage);
    connect(ui->btnPolishReturn, &QPushButton::clicked, this,
            &TechnologyWidget::return_polishwiget);
    connect(ui->btnPolishModify, &QPushButton::clicked, this, &TechnologyWidget::modifypolish);
    connect(ui->m_pPolishCombox, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &TechnologyWidget::showPolish);
    connect(ui->BtnPolishPara, &QToolButton::clicked, this, &TechnologyWidget::showPolish);
}

/// Opens the parameter page, or reads it anew when the process number changed.
void TechnologyWidget::showPolish()
{
    showPage(page::PolishPara);
    request::ask(message::GetPolish, wire::reply::robot_Polish_Para, ui->m_pPolishCombox);
    showViewState(polishPages->page);
}

void TechnologyWidget::modifypolish()
{
    pressModify(
        polishPages->page, [this] { return acceptFields(ui); },
        [this] {
            Json::Value body = request::forRow(ui->m_pPolishCombox);
            for (const Parameter &parameter : kParameters)
                fields::collect(parameter.field, ui, body);
            request::send(message::SetPolish, body);
        });
}

/// The parameters of a process number arrived.
void TechnologyWidget::updatePolishParam(const QByteArray &body)
{
    const std::optional<Reply> polish = reply::strict(wire::reply::robot_Polish_Para, body);
    if (!polish || !reply::selectProcessNumber(ui->m_pPolishCombox, *polish))
        return;
    for (const Parameter &parameter : kParameters)
        fields::fill(parameter.field, ui, *polish);
}

void TechnologyWidget::return_polishwiget()
{
    showPage(page::Polish);
}
