// Elementary functions of our own. C libraries differ in the last bits between systems, and one bit is enough
// to move a particle across a pixel's edge; these give the same bits on every system and instruction set.
#pragma once

namespace vantle {

struct SineCosine {
  float sine;
  float cosine;
};

/// Sine and cosine of an angle in radians. Infinities and NaN give NaN.
float Sin(float radians);
float Cos(float radians);
SineCosine SinCos(float radians);
float Tan(float radians);

/// Angle of the point (x, y) in radians, -pi..pi, with the sign and zero rules of IEEE 754.
float Atan2(float y, float x);

/// Arc sine in radians; NaN outside -1..1.
float Asin(float x);

/// Remainder of x / y with the sign of x, exact. NaN for y = 0 or an infinite x.
float Fmod(float x, float y);

/// The same in double precision.
double Sin(double radians);
double Cos(double radians);
double Atan2(double y, double x);
double Asin(double x);

}  // namespace vantle
