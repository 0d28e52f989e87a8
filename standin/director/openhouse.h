#pragma once

class QString;
struct directoroptions;

/// Opens the windows of so many clients side by side for people to play with; returns when all were closed or the
/// director was interrupted. False, with the reason, when somebody did not get in or did not end well.
bool keepOpenHouse(const directoroptions& options, QString* error);
