// MediaSupport.h: what the removable-media tests need to mount for real without touching the
// machine's own mount table.
//
// InPrivateMounts runs the current test again in a fresh copy of the test program, which moves
// into a mount namespace of its own before the test body runs: every mount it makes is gone with
// it. KeyImage puts a small ext2 file system on loop devices that detach themselves once nothing
// uses them. One thread at a time.
#ifndef VYRCORE_TESTS_MEDIA_MEDIASUPPORT_H
#define VYRCORE_TESTS_MEDIA_MEDIASUPPORT_H

#include <sys/types.h>

#include <string>

#include <boost/noncopyable.hpp>

#include "support/TestSupport.h"

namespace vyrtest {

// In the test program: runs this test in a child copy of the program (with `preload` in
// LD_PRELOAD when given), reports its failure or skip as this test's own, and returns false; the
// test body returns at once. In the child: puts empty tmpfs over "/mnt", "/proc/bus" and "/dev"
// (which then holds only "null") in a private mount namespace and returns true, or skips the test
// when the kernel refuses, and returns false.
//   if (!vyrtest::InPrivateMounts()) return;
bool InPrivateMounts(const char* preload = nullptr);

// A 2 MiB disk image with a partition-like layout: 1 MiB of zeros, then a 1 MiB ext2 file
// system. Whole() is a loop device over the image (mount finds no file system on it), Part() one
// over the ext2 part only. Only in a child of InPrivateMounts: the loop devices are reached
// through the machine's /dev, which the child has covered. Making the file system failing
// throws std::runtime_error; a kernel that refuses loop devices leaves Refusal() non-empty.
class KeyImage : boost::noncopyable {
 public:
  KeyImage();
  ~KeyImage();
  const std::string& Refusal() const { return fRefusal; }
  dev_t Whole() const { return fWhole.rdev; }
  dev_t Part() const { return fPart.rdev; }

 private:
  struct Loop {
    int fd = -1;
    dev_t rdev = 0;
  };
  Loop Attach(unsigned long offset);

  ScopedTempDir fDir;
  std::string fImage;
  std::string fRefusal;
  Loop fWhole, fPart;
};

// A block device node for device at path (in the child's own /dev); throws std::runtime_error.
void MakeBlockNode(const std::string& path, dev_t device);

// "<major>:<minor> <type>" of the file system mounted last on mountPoint, "" when none is.
std::string MountedAt(const std::string& mountPoint);
// "<major>:<minor> ext2" for a device holding the key image's file system.
std::string Ext2On(dev_t device);

// Unmounts everything stacked on mountPoint.
void UnmountAll(const std::string& mountPoint);

}  // namespace vyrtest

#endif
