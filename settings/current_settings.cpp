#include "settings/settings.h"

namespace velmo {

Settings& CurrentSettings() {
  static Settings settings;
  return settings;
}

}  // namespace velmo
