#pragma once

/// Has check boxes and radio buttons stand out in dark palettes as well, where the style of the
/// system is Qt's own. Needs a QApplication without windows.
void useClearIndicators();
