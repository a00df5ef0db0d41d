#pragma once

class QLabel;

/// White on red in small letters: a label that is shown while something is wrong.
void setUpWarningMark(QLabel *label);
