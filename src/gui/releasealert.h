#pragma once

#include "sources/releaseannouncement.h"

class QWidget;

/// Tells of a newer release. Who wants it is shown where it is downloaded, and the program ends.
void showReleaseAlert(const ReleaseAnnouncement &release, QWidget *parent);
