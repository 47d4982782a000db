/// @file
/// vyrcore.h: everything public of libvyrcore in one include.
#ifndef VYRCORE_VYRCORE_H
#define VYRCORE_VYRCORE_H

#include <vyrcore/export.h>
#include <vyrcore/Status.h>
#include <vyrcore/AssertionHook.h>
#include <vyrcore/CIMDateTime.h>
#include <vyrcore/CIMDateTimeImpl.h>
#include <vyrcore/CIMValue.h>
#include <vyrcore/CIMValueImpl.h>
#include <vyrcore/CIMReference.h>
#include <vyrcore/CIMReferenceImpl.h>
#include <vyrcore/CIMObjectModel.h>
#include <vyrcore/NamespaceProvider.h>
#include <vyrcore/NamespaceProviderManager.h>
#include <vyrcore/Logger.h>
#include <vyrcore/RootObject.h>
#include <vyrcore/OSSpecific.h>
#include <vyrcore/CIMCopy.h>
#include <vyrcore/CIMXml.h>
#include <vyrcore/SchemaHelper.h>

#endif
