#pragma once

// Status codes of the measuring operations: 0 is success, every other value a failure. After a
// failure the outputs are as the caller left them unless an operation says otherwise.

inline constexpr long GM_OK = 0;

inline constexpr long GM_E_EMPTY_IMAGE = 11000001;     ///< image with a width or height below 1
inline constexpr long GM_E_TOO_FEW_POINTS = 11000010;  ///< fewer points than the operation needs
inline constexpr long GM_E_FIT_NO_RESULT = 11000013;   ///< a circle fit or spline gave no result
inline constexpr long GM_E_EMPTY_CONTOUR = 11000020;   ///< contour empty or too short

/// The Gaussian curve fit in closed form was given fewer than 4 points.
inline constexpr long GM_E_GAUSS_TOO_FEW_POINTS = 11100006;

// The N-th argument, counted from 1 in the order of the signature, is invalid. The first one also
// stands for input that makes the computation undefined (a zero denominator, a singular system).
inline constexpr long GM_E_PARAM_1 = 11200001;
inline constexpr long GM_E_PARAM_2 = 11200002;
inline constexpr long GM_E_PARAM_3 = 11200003;
inline constexpr long GM_E_PARAM_4 = 11200004;
inline constexpr long GM_E_PARAM_5 = 11200005;
inline constexpr long GM_E_PARAM_6 = 11200006;
inline constexpr long GM_E_PARAM_7 = 11200007;
inline constexpr long GM_E_PARAM_8 = 11200008;

inline constexpr long GM_E_CIRCLE_FIT_FAILED = 20303001;  ///< circle fit unsolvable or diverging
inline constexpr long GM_E_COLLINEAR = 20401002;          ///< collinear directions
inline constexpr long GM_E_PARALLEL = 20401003;           ///< parallel lines
inline constexpr long GM_E_DEGENERATE_LINE = 20401004;    ///< the two points of a line coincide
inline constexpr long GM_E_NO_INTERSECTION = 20401005;    ///< coincident figures; no common pixel
inline constexpr long GM_E_DEGENERATE_RESULT = 20401006;  ///< vanishing result, or nothing found
inline constexpr long GM_E_PROJECTION_FAILED = 20401007;  ///< exception while projecting a point
inline constexpr long GM_E_ANGLE_FAILED = 20401009;       ///< exception while computing an angle
inline constexpr long GM_E_FIT_FAILED = 20401010;         ///< a fit or equation solve failed
inline constexpr long GM_E_DISTANCE_FAILED = 20401011;    ///< exception while computing a distance
inline constexpr long GM_E_INTERSECTION_FAILED = 20401012;      ///< exception while intersecting
inline constexpr long GM_E_INSCRIBED_CIRCLE_FAILED = 20401014;  ///< no inscribed circle found

inline constexpr long GM_E_FIT_UNBOUNDED = 30305018;  ///< a fitted curve parameter is infinite
