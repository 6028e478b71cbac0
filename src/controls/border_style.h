#pragma once
// What is drawn around a form or a control.

namespace lumidex {

enum class BorderStyle : int { None = 0, FixedSingle = 1, Sizable = 2, FixedDialog = 3 };

}  // namespace lumidex
