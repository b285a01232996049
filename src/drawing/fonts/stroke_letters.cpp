#include "drawing/fonts/stroke_letters.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace velmar::drawing {
namespace {

// The Hershey Fonts were originally created by Dr. A. V. Hershey while working at the U. S.
// National Bureau of Standards. The format of the font data was originally created by James Hurt,
// Cognition, Inc., 900 Technology Park Drive, Billerica, MA 01821. The data may be used by anyone
// for any purpose, but not converted into the format of the U.S. NTIS.
//
// Each point is two characters, its distance from "R" to the right and downwards; " R" lifts the
// pen.

// clang-format off
/// From the blank (32) to the tilde (126).
constexpr std::string_view simplex[] = {
    R"()",  // blank
    R"(RFRT RRYQZR[SZRY)",  // !
    R"(NFNM RVFVM)",  // "
    R"(SBLb RYBRb RLOZO RKUYU)",  // #
    R"(PBP_ RTBT_ RYIWGTFPFMGKIKKLMMNOOUQWRXSYUYXWZT[P[MZKX)",  // $
    R"([FI[ RNFPHPJOLMMKMIKIIJGLFNFPGSHVHYG[F RWTUUTWTYV[X[ZZ[X[VYTWT)",  // %
    R"(\O\N[MZMYNXPVUTXRZP[L[JZIYHWHUISJRQNRMSKSIRGPFNGMIMKNNPQUXWZY[[[\Z\Y)",  // &
    R"(RHQGRFSGSIRKQL)",  // '
    R"(VBTDRGPKOPOTPYR]T`Vb)",  // (
    R"(NBPDRGTKUPUTTYR]P`Nb)",  // )
    R"(RFRR RMIWO RWIMO)",  // *
    R"(RIR[ RIR[R)",  // +
    R"(SZR[QZRYSZS\R^Q_)",  // ,
    R"(IR[R)",  // -
    R"(RYQZR[SZRY)",  // .
    R"([BIb)",  // /
    R"(QFNGLJKOKRLWNZQ[S[VZXWYRYOXJVGSFQF)",  // 0
    R"(NJPISFS[)",  // 1
    R"(LKLJMHNGPFTFVGWHXJXLWNUQK[Y[)",  // 2
    R"(MFXFRNUNWOXPYSYUXXVZS[P[MZLYKW)",  // 3
    R"(UFKTZT RUFU[)",  // 4
    R"(WFMFLOMNPMSMVNXPYSYUXXVZS[P[MZLYKW)",  // 5
    R"(XIWGTFRFOGMJLOLTMXOZR[S[VZXXYUYTXQVOSNRNOOMQLT)",  // 6
    R"(YFO[ RKFYF)",  // 7
    R"(PFMGLILKMMONSOVPXRYTYWXYWZT[P[MZLYKWKTLRNPQOUNWMXKXIWGTFPF)",  // 8
    R"(XMWPURRSQSNRLPKMKLLINGQFRFUGWIXMXRWWUZR[P[MZLX)",  // 9
    R"(RMQNROSNRM RRYQZR[SZRY)",  // :
    R"(RMQNROSNRM RSZR[QZRYSZS\R^Q_)",  // ;
    R"(ZIJRZ[)",  // <
    R"(IO[O RIU[U)",  // =
    R"(JIZRJ[)",  // >
    R"(LKLJMHNGPFTFVGWHXJXLWNVORQRT RRYQZR[SZRY)",  // ?
    R"(WNVLTKQKOLNMMPMSNUPVSVUUVS RQKOMNPNSOUPV RWKVSVUXVZV\T]Q]O\L[JYHWGTFQFNGLHJJILHOHRIU)"
        R"(JWLYNZQ[T[WZYYZX RXKWSWUXV)",  // @
    R"(RFJ[ RRFZ[ RMTWT)",  // A
    R"(KFK[ RKFTFWGXHYJYLXNWOTP RKPTPWQXRYTYWXYWZT[K[)",  // B
    R"(ZKYIWGUFQFOGMILKKNKSLVMXOZQ[U[WZYXZV)",  // C
    R"(KFK[ RKFRFUGWIXKYNYSXVWXUZR[K[)",  // D
    R"(LFL[ RLFYF RLPTP RL[Y[)",  // E
    R"(LFL[ RLFYF RLPTP)",  // F
    R"(ZKYIWGUFQFOGMILKKNKSLVMXOZQ[U[WZYXZVZS RUSZS)",  // G
    R"(KFK[ RYFY[ RKPYP)",  // H
    R"(RFR[)",  // I
    R"(VFVVUYTZR[P[NZMYLVLT)",  // J
    R"(KFK[ RYFKT RPOY[)",  // K
    R"(LFL[ RL[X[)",  // L
    R"(JFJ[ RJFR[ RZFR[ RZFZ[)",  // M
    R"(KFK[ RKFY[ RYFY[)",  // N
    R"(PFNGLIKKJNJSKVLXNZP[T[VZXXYVZSZNYKXIVGTFPF)",  // O
    R"(KFK[ RKFTFWGXHYJYMXOWPTQKQ)",  // P
    R"(PFNGLIKKJNJSKVLXNZP[T[VZXXYVZSZNYKXIVGTFPF RSWY])",  // Q
    R"(KFK[ RKFTFWGXHYJYLXNWOTPKP RRPY[)",  // R
    R"(YIWGTFPFMGKIKKLMMNOOUQWRXSYUYXWZT[P[MZKX)",  // S
    R"(RFR[ RKFYF)",  // T
    R"(KFKULXNZQ[S[VZXXYUYF)",  // U
    R"(JFR[ RZFR[)",  // V
    R"(HFM[ RRFM[ RRFW[ R\FW[)",  // W
    R"(KFY[ RYFK[)",  // X
    R"(JFRPR[ RZFRP)",  // Y
    R"(YFK[ RKFYF RK[Y[)",  // Z
    R"(OBOb RPBPb ROBVB RObVb)",  // [
    R"(KFY^)",  // backslash
    R"(TBTb RUBUb RNBUB RNbUb)",  // ]
    R"(PLRITL RMORJWO RRJR[)",  // ^
    R"(J]Z])",  // _
    R"(SFRGQIQKRLSKRJ)",  // `
    R"(XMX[ RXPVNTMQMONMPLSLUMXOZQ[T[VZXX)",  // a
    R"(LFL[ RLPNNPMSMUNWPXSXUWXUZS[P[NZLX)",  // b
    R"(XPVNTMQMONMPLSLUMXOZQ[T[VZXX)",  // c
    R"(XFX[ RXPVNTMQMONMPLSLUMXOZQ[T[VZXX)",  // d
    R"(LSXSXQWOVNTMQMONMPLSLUMXOZQ[T[VZXX)",  // e
    R"(WFUFSGRJR[ ROMVM)",  // f
    R"(XMX]W`VaTbQbOa RXPVNTMQMONMPLSLUMXOZQ[T[VZXX)",  // g
    R"(MFM[ RMQPNRMUMWNXQX[)",  // h
    R"(QFRGSFREQF RRMR[)",  // i
    R"(RFSGTFSERF RSMS^RaPbNb)",  // j
    R"(MFM[ RWMMW RQSX[)",  // k
    R"(RFR[)",  // l
    R"(GMG[ RGQJNLMOMQNRQR[ RRQUNWMZM\N]Q][)",  // m
    R"(MMM[ RMQPNRMUMWNXQX[)",  // n
    R"(QMONMPLSLUMXOZQ[T[VZXXYUYSXPVNTMQM)",  // o
    R"(LMLb RLPNNPMSMUNWPXSXUWXUZS[P[NZLX)",  // p
    R"(XMXb RXPVNTMQMONMPLSLUMXOZQ[T[VZXX)",  // q
    R"(OMO[ ROSPPRNTMWM)",  // r
    R"(XPWNTMQMNNMPNRPSUTWUXWXXWZT[Q[NZMX)",  // s
    R"(RFRWSZU[W[ ROMVM)",  // t
    R"(MMMWNZP[S[UZXW RXMX[)",  // u
    R"(LMR[ RXMR[)",  // v
    R"(JMN[ RRMN[ RRMV[ RZMV[)",  // w
    R"(MMX[ RXMM[)",  // x
    R"(LMR[ RXMR[P_NaLbKb)",  // y
    R"(XMM[ RMMXM RM[X[)",  // z
    R"(TBRCQDPFPHQJRKSMSOQQ RRCQEQGRISJTLTNSPORSTTVTXSZR[Q]Q_Ra RQSSUSWRYQZP\P^Q`RaTb)",  // {
    R"(RBRb)",  // |
    R"(PBRCSDTFTHSJRKQMQOSQ RRCSESGRIQJPLPNQPURQTPVPXQZR[S]S_Ra RSSQUQWRYSZT\T^S`RaPb)",  // }
    R"(IUISJPLONOPPTSVTXTZS[Q RISJQLPNPPQTTVUXUZT[Q[O)",  // ~
};
// clang-format on
static_assert(std::size(simplex) == 127 - 32);

/// The letters under the accents of U+00C0 to U+00FF, and the accents: grave, acute, circumflex,
/// tilde, diaeresis, ring, cedilla, slash.
constexpr std::string_view unaccented =
    "AAAAAAACEEEEIIIIDNOOOOOxOUUUUYPsaaaaaaaceeeeiiiidnooooo+ouuuuypy";
constexpr std::string_view accents =
    "gactdr-,gacdgacd-tgactd-/gacda--gactdr-,gacdgacd-tgactd-/gacda-d";
static_assert(unaccented.size() == 64 && accents.size() == 64);

constexpr double capital = 21, small_top = 14;
/// A capital makes room for its accent.
constexpr double squeezed = 0.76;

Strokes decoded(std::string_view code) {
  Strokes strokes(1);
  for (std::size_t i = 0; i + 1 < code.size(); i += 2) {
    if (code[i] == ' ') {
      strokes.emplace_back();
    } else {
      strokes.back().push_back({double(code[i] - 'R'), 9 - double(code[i + 1] - 'R'), 0});
    }
  }
  std::erase_if(strokes, [](const auto& stroke) { return stroke.empty(); });
  return strokes;
}

double left_end(const Strokes& strokes) {
  double left = strokes.empty() ? 0 : strokes[0][0].x;
  for (const auto& stroke : strokes) {
    for (const Point& p : stroke) left = std::min(left, p.x);
  }
  return left;
}

double right_end(const Strokes& strokes) {
  double right = 0;
  for (const auto& stroke : strokes) {
    for (const Point& p : stroke) right = std::max(right, p.x);
  }
  return right;
}

std::vector<Point> ring(Point center, double radius) {
  const double d = radius * 0.7;
  const Point round[] = {{radius, 0}, {d, d},       {0, radius}, {-d, d},    {-radius, 0},
                         {-d, -d},    {0, -radius}, {d, -d},     {radius, 0}};
  std::vector<Point> points;
  for (const Point& p : round) points.push_back(center + p);
  return points;
}

/// About x, between 17 and 21 above the baseline, or below or across a letter of that width.
Strokes accent_strokes(char accent, double x, double width, double top) {
  switch (accent) {
    case 'g':
      return {{{x - 2, 21}, {x + 2, 17}}};
    case 'a':
      return {{{x + 2, 21}, {x - 2, 17}}};
    case 'c':
      return {{{x - 3, 18}, {x, 21}, {x + 3, 18}}};
    case 't':
      return {{{x - 4, 18}, {x - 2, 20}, {x + 2, 18}, {x + 4, 20}}};
    case 'd':
      return {{{x - 3, 20}, {x - 3, 18.5}}, {{x + 3, 20}, {x + 3, 18.5}}};
    case 'r':
      return {ring({x, 19}, 2)};
    case ',':
      return {{{x, 0}, {x + 1, -2}, {x, -4}, {x - 2, -4}}};
    case '/':
      return {{{0, 0}, {width, top}}};
    default:
      return {};
  }
}

Strokes accented(char32_t character) {
  const char accent = accents[character - 0xC0];
  Strokes strokes = simplex_strokes(base_letter(character));
  const bool is_capital = character < 0xE0;
  const bool above = accent != ',' && accent != '/' && accent != '-';
  const double width = right_end(strokes);
  for (auto& stroke : strokes) {
    for (Point& p : stroke) {
      if (above && is_capital) p.y *= squeezed;
    }
  }
  const double top = is_capital ? capital : small_top;
  for (auto& mark : accent_strokes(accent, width / 2, width, top)) strokes.push_back(mark);
  return strokes;
}

Strokes sign(char32_t character) {
  switch (character) {
    case 0xB0:
      return {ring({3, 18}, 3)};
    case 0xB1:
      return {{{0, 0}, {18, 0}}, {{0, 10}, {18, 10}}, {{9, 18}, {9, 2}}};
    case 0xB2:
    case 0xB3: {
      Strokes raised = simplex_strokes(character == 0xB2 ? U'2' : U'3');
      for (auto& stroke : raised) {
        for (Point& p : stroke) p = {p.x * 0.6, p.y * 0.5 + capital / 2, 0};
      }
      return raised;
    }
    case 0x2205:
    case 0x2300:
      return accented(0xD8);
    default:
      return {{{0, 0}, {14, 0}, {14, 21}, {0, 21}, {0, 0}}};
  }
}

}  // namespace

char32_t base_letter(char32_t character) {
  if (character < 0xC0 || character > 0xFF) return character;
  return static_cast<unsigned char>(unaccented[character - 0xC0]);
}

Strokes simplex_strokes(char32_t character) {
  if (character >= 0xC0 && character <= 0xFF) return accented(character);
  if (character <= 32 || character >= 127) return sign(character);
  Strokes strokes = decoded(simplex[character - 32]);
  const double left = left_end(strokes);
  for (auto& stroke : strokes) {
    for (Point& p : stroke) p.x -= left;
  }
  return strokes;
}

}  // namespace velmar::drawing
