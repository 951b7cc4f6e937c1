#include "host_services.h"
#include "IEventService.h"
#include "QkCore.h"
#include "host_ptr.h"
#include "res/strings.h"

namespace frame {

OdString dialogText(unsigned number) { return Supp_Translate(res::loadString(number).c_str()); }

void showHelp(const OdChar* topic, void* window) {
  if (const HostPtr<IHelpService> help{Get_IHelpService()}) help->ShowTopic(topic, window);
}

void tellError(const OdString& message, void* window) {
  if (const HostPtr<IEventService> events{Get_IEventService()})
    events->Message(message, nullptr, kHostOk + kHostIconError, window);
}

} // namespace frame
