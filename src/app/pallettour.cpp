#include "app/pallettour.h"

#include "app/operator.h"

PalletTour::PalletTour(Operator &hand) : m_operator(hand) { }

/// Opens craft 2 in complete mode and turns the pages of the chain to its end and back to the menu.
bool PalletTour::walk()
{
    if (!m_operator.touch(QStringLiteral("BtnPalletTech"))
        || !m_operator.touch(QStringLiteral("BtnPalletType"))
        || !m_operator.chooseRow(QStringLiteral("m_pPalletCraftNum"), 1))
        return false;
    m_operator.picture(QStringLiteral("pallet-type"));
    if (!m_operator.touch(QStringLiteral("BtnPalletComplete")))
        return false;
    m_operator.picture(QStringLiteral("pallet-navigation"));
    for (const char *button :
         {"palletNavigationStart", "tongsPageDown", "trayPageDown", "positionPageDown",
          "workpiecePageDown", "approachPageDown", "overlappingExplainBtn",
          "overlapExplainReturnBtn1", "overlappingPageDown", "planeModifyBtn"}) {
        if (!m_operator.touch(QLatin1String(button)))
            return false;
        m_operator.picture(QLatin1String("pallet-") + QLatin1String(button));
    }
    for (int type = 1; type <= 3; ++type) {
        if (!m_operator.chooseRow(QStringLiteral("planeTemplateComboBox"), type))
            return false;
        m_operator.picture(QStringLiteral("pallet-template-%1").arg(type));
    }
    for (const char *button :
         {"planeModifyCancelBtn", "returnNavigationBtn7", "palletNavigationReturn",
          "palletTypeReturn", "m_pBtnPalletTechReturn"}) {
        if (!m_operator.touch(QLatin1String(button)))
            return false;
    }
    return true;
}
