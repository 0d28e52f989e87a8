#pragma once

class kelvor;

/// The controller behind the exported functions of this program, which they keep for themselves; null when none runs.
kelvor* runningController();
