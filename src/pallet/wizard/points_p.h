#pragma once

#include "pallet/pallet_p.h"
#include "shell/livearm.h"
#include "shell/programinformation.h"

#include <array>
#include <optional>

/// The wizard's page of points: the joints J1 to J7 of where the robot is and of the three points.
struct TechnologyWidget::Pallet::WizardPoints : Page {
    explicit WizardPoints(Pallet &pallet);

    void retranslate() override;
    void forgetRobot() override;
    void linkChanged() override;

    /// The page opens.
    void open();
    /// No point is marked.
    void reset();
    void mark(ProgramInformation::Point point);
    void moveTo(ProgramInformation::Point point) const;

    QVector<QLabel *> heads;
    std::array<PointRow, ProgramInformation::Points> rows; ///< by ProgramInformation::Point

private:
    void showUnit();

    std::optional<bool> isInDegrees; ///< as the page was opened
};
