#include "zorvex/base/ErrorKind.h"

#include <algorithm>
#include <iterator>

namespace zorvex {

namespace {

struct KindRow {
    std::int32_t id;
    ErrorKind kind;
};

// In rising order of id. Numbers that are not here are of the kind Other.
constexpr KindRow kinds[] = {
    {5, ErrorKind::BadArgument},     {6, ErrorKind::TooLarge},          {7, ErrorKind::OutOfMemory},
    {9, ErrorKind::BadArgument},     {13, ErrorKind::BadArgument},      {51, ErrorKind::Internal},
    {53, ErrorKind::FileNotFound},   {55, ErrorKind::AlreadyOpen},      {57, ErrorKind::FileAccess},
    {58, ErrorKind::FileExists},     {61, ErrorKind::DiskFull},         {62, ErrorKind::BadData},
    {64, ErrorKind::BadArgument},    {70, ErrorKind::PermissionDenied}, {75, ErrorKind::FileAccess},
    {76, ErrorKind::FileNotFound},   {91, ErrorKind::NoGame},           {380, ErrorKind::BadArgument},
    {450, ErrorKind::ReadOnly},      {501, ErrorKind::AlreadyOpen},     {502, ErrorKind::FileAccess},
    {503, ErrorKind::FileAccess},    {504, ErrorKind::BadData},         {505, ErrorKind::BadData},
    {506, ErrorKind::BadData},       {507, ErrorKind::BadData},         {508, ErrorKind::FileNotFound},
    {510, ErrorKind::ReadOnly},      {511, ErrorKind::AlreadyLoaded},   {512, ErrorKind::FileAccess},
    {513, ErrorKind::BadData},       {514, ErrorKind::BadArgument},     {515, ErrorKind::BadArgument},
    {516, ErrorKind::TooLarge},      {517, ErrorKind::BadData},         {518, ErrorKind::BadArgument},
    {519, ErrorKind::BadArgument},   {520, ErrorKind::BadArgument},     {521, ErrorKind::BadArgument},
    {522, ErrorKind::BadArgument},   {523, ErrorKind::AlreadyExists},   {524, ErrorKind::FileNotFound},
    {525, ErrorKind::TooLarge},      {526, ErrorKind::BadArgument},     {527, ErrorKind::BadData},
    {528, ErrorKind::BadArgument},   {529, ErrorKind::BadData},         {530, ErrorKind::BadArgument},
    {531, ErrorKind::BadArgument},   {532, ErrorKind::BadArgument},     {533, ErrorKind::BadArgument},
    {534, ErrorKind::NotLoaded},     {535, ErrorKind::TooLarge},        {536, ErrorKind::BadArgument},
    {537, ErrorKind::TooLarge},      {538, ErrorKind::BadArgument},     {539, ErrorKind::BadArgument},
    {540, ErrorKind::BadArgument},   {541, ErrorKind::BadData},         {542, ErrorKind::BadData},
    {543, ErrorKind::Unsupported},   {544, ErrorKind::BadData},         {546, ErrorKind::SourceError},
    {547, ErrorKind::FileAccess},    {548, ErrorKind::BadData},         {549, ErrorKind::BadData},
    {550, ErrorKind::AlreadyExists}, {551, ErrorKind::AlreadyExists},   {552, ErrorKind::TooLarge},
    {553, ErrorKind::BadData},       {554, ErrorKind::NotLoaded},       {555, ErrorKind::BadData},
    {556, ErrorKind::BadArgument},   {557, ErrorKind::BadArgument},     {558, ErrorKind::Unsupported},
    {559, ErrorKind::BadData},       {560, ErrorKind::BadData},         {561, ErrorKind::BadArgument},
    {562, ErrorKind::BadData},       {563, ErrorKind::NotLoaded},       {568, ErrorKind::AlreadyExists},
    {569, ErrorKind::TooLarge},      {570, ErrorKind::BadArgument},     {574, ErrorKind::BadArgument},
    {575, ErrorKind::BadArgument},   {576, ErrorKind::AlreadyExists},   {579, ErrorKind::AlreadyExists},
    {581, ErrorKind::BadArgument},   {582, ErrorKind::FileAccess},      {583, ErrorKind::NotFound},
    {584, ErrorKind::NotFound},      {586, ErrorKind::NotFound},        {588, ErrorKind::BadArgument},
    {589, ErrorKind::BadData},       {590, ErrorKind::SourceError},     {593, ErrorKind::TooLarge},
    {594, ErrorKind::BadArgument},   {595, ErrorKind::BadData},         {596, ErrorKind::BadData},
    {597, ErrorKind::Unsupported},   {598, ErrorKind::BadData},         {599, ErrorKind::BadArgument},
    {600, ErrorKind::FileNotFound},  {601, ErrorKind::FileAccess},      {602, ErrorKind::AlreadyExists},
    {603, ErrorKind::NotLoaded},     {604, ErrorKind::BadArgument},     {605, ErrorKind::FileAccess},
    {606, ErrorKind::FileNotFound},  {608, ErrorKind::BadArgument},     {609, ErrorKind::BadData},
    {611, ErrorKind::NotFound},      {614, ErrorKind::BadArgument},     {615, ErrorKind::BadArgument},
    {616, ErrorKind::BadArgument},   {617, ErrorKind::NotFound},        {618, ErrorKind::NoGame},
    {619, ErrorKind::BadArgument},   {620, ErrorKind::BadArgument},     {621, ErrorKind::BadArgument},
    {622, ErrorKind::BadData},       {623, ErrorKind::AlreadyExists},   {624, ErrorKind::FileAccess},
    {626, ErrorKind::BadArgument},   {627, ErrorKind::SourceError},     {629, ErrorKind::Busy},
    {630, ErrorKind::BadArgument},   {633, ErrorKind::FileAccess},      {635, ErrorKind::SourceError},
    {639, ErrorKind::TooLarge},      {640, ErrorKind::FileAccess},      {642, ErrorKind::AlreadyLoaded},
    {655, ErrorKind::FileNotFound},  {665, ErrorKind::BadData},         {667, ErrorKind::BadArgument},
    {668, ErrorKind::NoGame},        {669, ErrorKind::AlreadyExists},   {675, ErrorKind::FileAccess},
    {677, ErrorKind::NoGame},        {678, ErrorKind::NotLoaded},       {679, ErrorKind::ReadOnly},
    {680, ErrorKind::ReadOnly},      {681, ErrorKind::BadData},         {682, ErrorKind::BadData},
    {683, ErrorKind::FileAccess},    {687, ErrorKind::FileExists},      {688, ErrorKind::SourceError},
    {689, ErrorKind::BadArgument},   {690, ErrorKind::BadData},         {691, ErrorKind::BadData},
    {692, ErrorKind::BadData},       {693, ErrorKind::NoGame},          {694, ErrorKind::BadArgument},
    {696, ErrorKind::NotFound},      {697, ErrorKind::AlreadyExists},
};

constexpr std::int32_t firstSourceError = 4001;
constexpr std::int32_t lastSourceError = 4999;

}  // namespace

ErrorKind KindOfError(std::int32_t id) {
    if (id >= firstSourceError && id <= lastSourceError) return ErrorKind::SourceError;
    const KindRow* row =
        std::lower_bound(std::begin(kinds), std::end(kinds), id,
                         [](const KindRow& left, std::int32_t wanted) { return left.id < wanted; });
    return row != std::end(kinds) && row->id == id ? row->kind : ErrorKind::Other;
}

}  // namespace zorvex
