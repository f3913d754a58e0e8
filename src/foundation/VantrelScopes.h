#pragma once

/// Gives a variable a value that ends with the scope, however that ends.
template <class T>
class TVantrelScopedValue {
 public:
  /// `after` is what the variable holds behind the scope. The variable outlives it.
  TVantrelScopedValue(T& variable, T within, T after) : FVariable(variable), FAfter(after) { FVariable = within; }
  TVantrelScopedValue(const TVantrelScopedValue&) = delete;
  TVantrelScopedValue& operator=(const TVantrelScopedValue&) = delete;
  ~TVantrelScopedValue() { FVariable = FAfter; }

 private:
  T& FVariable;
  const T FAfter;
};

/// Calls one operation of an object where the scope begins, and another where it ends, however it ends.
template <class T, void (T::*Begin)(), void (T::*End)()>
class TVantrelBracket {
 public:
  /// The object outlives the scope.
  explicit TVantrelBracket(T& object) : FObject(object) { (FObject.*Begin)(); }
  TVantrelBracket(const TVantrelBracket&) = delete;
  TVantrelBracket& operator=(const TVantrelBracket&) = delete;
  ~TVantrelBracket() { (FObject.*End)(); }

 private:
  T& FObject;
};
