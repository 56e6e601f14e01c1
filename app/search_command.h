// "Search...": the search dialog, then on Done the Search view over every task
// read again for its match marks, under the categories chosen in the dialog.
#pragma once

namespace velmo::app {

void RunSearchCommand();

}  // namespace velmo::app
