// The wizard's page of ports: gripper valves, pick permission, and the inputs that tell of a grip.

#include "pallet/wizard/wizardpages.h"
#include "shell/technologyform.h"
#include "shell/technologywidget.h"

#include <QComboBox>
#include <algorithm>
#include <array>

namespace {

using Form = Ui_TechnologyWidget;
constexpr int kGrippers = ProgramInformation::kGrippers;

/// A signal of the cell: the row of its port box is the port, "无" being row 0; the value is the
/// text of the other box, "1" or "0".
struct SignalBoxes {
    QComboBox *port;
    QComboBox *value;
};

std::array<SignalBoxes, kGrippers> valves(const Form *ui)
{
    return {{{ui->tongs_1_port, ui->tongs_1_port_validvalues},
             {ui->tongs_2_port, ui->tongs_2_port_validvalues},
             {ui->tongs_3_port, ui->tongs_3_port_validvalues},
             {ui->tongs_4_port, ui->tongs_4_port_validvalues}}};
}

std::array<SignalBoxes, kGrippers> grips(const Form *ui)
{
    return {{{ui->tongs_1_getsucceed, ui->tongs_1_getsucceed_validvalues},
             {ui->tongs_2_getsucceed, ui->tongs_2_getsucceed_validvalues},
             {ui->tongs_3_getsucceed, ui->tongs_3_getsucceed_validvalues},
             {ui->tongs_4_getsucceed, ui->tongs_4_getsucceed_validvalues}}};
}

SignalBoxes permission(const Form *ui)
{
    return {ui->get_enable_signal, ui->get_enable_signal_validvalues};
}

void save(const SignalBoxes &boxes, int &port, int &value)
{
    port = boxes.port->currentIndex();
    value = boxes.value->currentText().toInt();
}

} // namespace

void TechnologyWidget::saveWizardPutGetGoodsParam(bool skip, int)
{
    if (!skip)
        save(permission(ui), programInformation.getEnablePort, programInformation.getEnableValue);
}

void TechnologyWidget::saveWizardPumpParam(bool skip, int)
{
    std::size_t gripper = 0;
    for (const SignalBoxes &boxes : valves(ui)) {
        if (!skip)
            save(boxes, programInformation.tongsPort[gripper],
                 programInformation.tongsValue[gripper]);
        ++gripper;
    }
}

void TechnologyWidget::saveWizardSuccessParam(bool skip, int)
{
    std::size_t gripper = 0;
    for (const SignalBoxes &boxes : grips(ui)) {
        if (!skip)
            save(boxes, programInformation.tongsSucceedPort[gripper],
                 programInformation.tongsSucceedValue[gripper]);
        ++gripper;
    }
}

void wizard::resetPorts(const Form *ui)
{
    const auto reset = [](const SignalBoxes &boxes) {
        boxes.port->setCurrentIndex(0);
        boxes.value->setCurrentIndex(0);
    };
    const auto outputs = valves(ui);
    const auto inputs = grips(ui);
    std::for_each(outputs.begin(), outputs.end(), reset);
    std::for_each(inputs.begin(), inputs.end(), reset);
    reset(permission(ui));
}
