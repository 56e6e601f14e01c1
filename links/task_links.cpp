#include "links/task_links.h"

#include "links/scanners.h"

namespace velmo {

void FillTaskLinks(Task& task, const char* ansi_notes) {
  const wchar_t* subject = task.subject.c_str();
  const char* body = ansi_notes ? ansi_notes : "";
  task.phone_number = FindPhoneNumber(subject);
  if (task.phone_number.empty()) task.phone_number = FindPhoneNumber(body);
  const bool web = FindWebAddress(body, nullptr) || FindWebAddress(subject, nullptr);
  const bool mail = FindEmail(body, nullptr) || FindEmail(subject, nullptr);
  task.web_link_count = web ? 1 : 0;
  task.mail_link_count = mail ? 1 : 0;
}

}  // namespace velmo
