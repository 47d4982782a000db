/// @file
/// export.h: the visibility macro of libvyrcore.
///
/// The library is built with hidden visibility; everything public carries VYR_EXPORT. Exported
/// classes share their type information with the plug-ins loaded beside the library, so that
/// `catch (TVYRException&)` and `dynamic_cast` work across the module boundary.
#ifndef VYRCORE_EXPORT_H
#define VYRCORE_EXPORT_H

/// Marks a class or function as part of the library's interface (default visibility).
#define VYR_EXPORT __attribute__((visibility("default")))

#endif
