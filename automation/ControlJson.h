#pragma once

#include <nlohmann/json_fwd.hpp>

namespace rovanta {

class Control;
struct ShownMessage;
class Value;

/// A control as it is read: its kind, whether it is enabled and visible, and what its kind carries.
nlohmann::json ToJson(const Control& control);
/// A message box as it was shown and answered.
nlohmann::json ToJson(const ShownMessage& shown);
/// A value of the database: dates as "yyyy-mm-dd hh:mm:ss".
nlohmann::json ToJson(const Value& value);

}
