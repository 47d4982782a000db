/// @file
/// A header whose public class and operations are all documented.

/// A class with a comment.
class TDocumented {
 public:
  /// An operation with a comment.
  void Remember();

 private:
  void Undocumented();  // private: not part of the reference
};
