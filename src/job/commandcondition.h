#pragma once

#include <QString>
#include <array>

/// What a loop or a wait looks at: a left operand, a comparison and a right operand.
struct CommandCondition {
    enum Operand {
        IntegerVariable = 1,
        BooleanVariable = 3,
        GlobalBooleanVariable = 6,
        DigitalInput = 7
    };

    template <class Self, class Visitor> static void visit(Self &self, Visitor &&visitor)
    {
        visitor("operandKind", self.operandKind);
        visitor("operandName", self.operandName);
        visitor("operandPort", self.operandPort);
        visitor("reserved1", self.reserved1);
        visitor("comparison", self.comparison);
        visitor("reserved2", self.reserved2);
        visitor("rightValue", self.rightValue);
    }

    int operandKind = IntegerVariable; ///< an Operand
    QString operandName = QStringLiteral("I000");
    int operandPort = 0; ///< port number of a digital input, from 1
    int reserved1 = 0;
    int comparison = 1; ///< index into `comparisons`
    int reserved2 = 0;
    QString rightValue = QStringLiteral("0");
    /// The same in every condition; a stored job does not carry them.
    std::array<QString, 7> comparisons = {
        QStringLiteral("<>"), QStringLiteral("=="), QStringLiteral("<"), QStringLiteral(">"),
        QStringLiteral("<="), QStringLiteral(">="), QStringLiteral("!=")};
};
