#pragma once

class voiceserver;

/// Puts a few painted pictures into the channels of the default town, so that there is something to load. Files that
/// are there already stay.
void addSamplePictures(const voiceserver& server);
