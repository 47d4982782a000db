/// @file
/// A header with an undocumented class and an undocumented operation.

class TUndocumented {
 public:
  /// Documented, in a class that is not.
  void Remember();
};

/// A class with a comment, one of whose operations has none.
class TPartlyDocumented {
 public:
  /// An operation with a comment.
  void Remember();
  void Forget();
};
