// Sending the selected task: "Save As..." (the task as text in a file the
// user names) and "Mail Task..." (the mail composer with the task as subject
// and body).
#pragma once

#include "platform/cedb.h"

namespace velmo::app {

void SaveTaskAs(CEOID oid);
void MailTask(CEOID oid);

}  // namespace velmo::app
