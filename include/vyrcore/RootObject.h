// RootObject.h: TRootObject, the single access point to the library's process-wide objects.
//
// Static operations only. GetCoreLogger returns the logger made by TLogger::Initialize, or null
// before that: code that may run early checks for null.
#ifndef VYRCORE_ROOTOBJECT_H
#define VYRCORE_ROOTOBJECT_H

#include <vyrcore/Logger.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

class VYR_EXPORT TRootObject {
 public:
  TRootObject() = delete;

  // Exactly TLogger::GetInstance(); never creates the logger.
  static ILogger* GetCoreLogger();
};

}  // namespace NORXVYR20

#endif
