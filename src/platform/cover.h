#pragma once

/// Covers everything but the current dialog, so that only its answer can be given.
void CoverOtherWidgetButCurDialog();
/// Lifts that cover. Without a cover it does nothing.
void DisCoverOtherWidgetButCurDialog();
