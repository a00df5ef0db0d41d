#pragma once

/// The 59 pages of the stack in their order: name in the code, object name on the form, title id of
/// group 8 (-1: showing the page leaves the title as it is).
#define TECHNOLOGY_PAGES(PAGE)                                                                     \
    PAGE(Menu, techMainButtonWidget, 0)                                                            \
    PAGE(Pallet, palletPage, 1)                                                                    \
    PAGE(OverlapExplain1, overlapExplainPage1, -1)                                                 \
    PAGE(OverlapExplain2, overlapExplainPage2, -1)                                                 \
    PAGE(OverlapExplain3, overlapExplainPage3, -1)                                                 \
    PAGE(OverlapExplain4, overlapExplainPage4, -1)                                                 \
    PAGE(Conveyor, trackConveyorPage, 22)                                                          \
    PAGE(ConveyorPara, trackConParaPage, 23)                                                       \
    PAGE(ConveyorBasic, trackConBasicInfpage, 55)                                                  \
    PAGE(ConveyorTool, trackConSetToolpage, 56)                                                    \
    PAGE(ConveyorCalibration, trackConCalibrationpage, 57)                                         \
    PAGE(ConveyorPosition, trackConSetPospage, 59)                                                 \
    PAGE(CalibrationStart, calibrationStartpage, -1)                                               \
    PAGE(OverlapExplain5, overlapExplainPage5, -1)                                                 \
    PAGE(OverlapExplain6, overlapExplainPage6, -1)                                                 \
    PAGE(Laser, laserMainpage, 5)                                                                  \
    PAGE(LaserBore, LaserBorepage, 24)                                                             \
    PAGE(LaserBoreSlope, Laserboreslopepage, -1)                                                   \
    PAGE(LaserCut, LaserCutpage, 25)                                                               \
    PAGE(LaserCutSlope, LaserCutSlopePage, -1)                                                     \
    PAGE(LaserAnalog, LaserAnalogpage, 26)                                                         \
    PAGE(LaserIo, LaserIoSetpage, 27)                                                              \
    PAGE(LaserHand, laserHandOppage, 28)                                                           \
    PAGE(PalletNavigation, palletNavigationpage, 6)                                                \
    PAGE(PalletGripper, palletSetTongspage, 7)                                                     \
    PAGE(PalletTray, palletSetTraypage, 8)                                                         \
    PAGE(PalletPosition, palletSetPositionpage, 9)                                                 \
    PAGE(PalletWorkpiece, palletWorkpieceParapage, 10)                                             \
    PAGE(PalletApproach, palletApproachParapage, 11)                                               \
    PAGE(PalletOverlapping, palletOverlappingModelpage, 12)                                        \
    PAGE(PalletPlane, palletPlaneModelpage, 13)                                                    \
    PAGE(PalletMultiple, palletMultiplepage, -1)                                                   \
    PAGE(PalletMultipleCount, palletMultipleCountpage, 15)                                         \
    PAGE(Wizard1, palletCreatedFilepage1, 16)                                                      \
    PAGE(Wizard2, palletCreatedFilepage2, -1)                                                      \
    PAGE(Wizard3, palletCreatedFilepage3, -1)                                                      \
    PAGE(Wizard4, palletCreatedFilepage4, -1)                                                      \
    PAGE(Wizard5, palletCreatedFilepage5, -1)                                                      \
    PAGE(PalletState, palletStatepage, -1)                                                         \
    PAGE(CustomPreview, customPreviewpage, -1)                                                     \
    PAGE(PalletEasy, PalletEasy, 18)                                                               \
    PAGE(PalletEasyGripper, page_2, 19)                                                            \
    PAGE(PalletEasyPosition, page_3, 20)                                                           \
    PAGE(Project, BWBpage, -1)                                                                     \
    PAGE(ProjectList, proviewpage, 21)                                                             \
    PAGE(ProjectNew, BWBNewProgram_page, -1)                                                       \
    PAGE(ProjectPoints, page_4, -1)                                                                \
    PAGE(Polish, polishpage, 47)                                                                   \
    PAGE(PolishPara, page_5, 48)                                                                   \
    PAGE(Spray, page_6, 49)                                                                        \
    PAGE(SprayAnalog, page_7, 50)                                                                  \
    PAGE(SprayDigital, page_8, 51)                                                                 \
    PAGE(SpraySequence, page_9, 52)                                                                \
    PAGE(SprayHand, page_10, 53)                                                                   \
    PAGE(SprayTrack, page_11, 54)                                                                  \
    PAGE(ConveyorCalibrationB, page_12, 58)                                                        \
    PAGE(CalibrationStartB, page_13, -1)                                                           \
    PAGE(PalletType, page_14, 60)                                                                  \
    PAGE(LocationDebug, LocationDebugpage, 61)

namespace page {

/// Index of a page in the stack.
enum Index : int {
#define PAGE(name, object, title) name,
    TECHNOLOGY_PAGES(PAGE)
#undef PAGE
        Count
};

struct Row {
    Index index;
    const char *objectName;
    int title;
};

constexpr Row kTable[] = {
#define PAGE(name, object, title) {name, #object, title},
    TECHNOLOGY_PAGES(PAGE)
#undef PAGE
};

static_assert(Count == 59, "the stack has 59 pages");

constexpr int kTitleGroup = 8; ///< title group of every page of the stack and of the screw page
constexpr int kHostedTitleGroup = 1; ///< title group of the welding and vision pages

} // namespace page
