#pragma once

/// Makes qtTrId("LogFinished") and its like give the texts that users read. Needs a
/// QCoreApplication and lasts as long as it.
void installTexts();
