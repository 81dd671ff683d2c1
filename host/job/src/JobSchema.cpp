#include "skyframe/job/JobSchema.h"

#include "FieldList.h"
#include "JobCapacities.h"
#include "ReportFields.h"

namespace skyframe::host {

namespace {

/// In both languages: the schema is one file.
Json Describe(Json type, const Words& meaning) {
  type["description"] = std::string(meaning.strEnglish) + " · " + std::string(meaning.strChinese);
  return type;
}

Json DescribeUnit(Json type, std::string_view strUnit) {
  type["description"] = strUnit;
  return type;
}

template <class A>
Json DescribeAnalysis() {
  Json type = DescribeFields(CFieldLister::List<A>());
  Json kind = {{"type", {{"const", A::c_strType}}}};
  if constexpr (requires { A::c_nMethod; }) kind["method"] = {{"const", c_strMethods[A::c_nMethod]}};
  type["required"] = Json::array();
  for (const auto& [strKey, value] : kind.items()) type["required"].push_back(strKey);
  kind.update(type["properties"]);
  type["properties"] = std::move(kind);
  return type;
}

Json DescribeNode() {
  return ObjectType(
      {{"id", Describe(IntegerType(1), {"name of the node, unique", "节点名，不得重复"})},
       {"x", DescribeUnit(NumberType(), "m")},
       {"y", DescribeUnit(NumberType(), "m")},
       {"z", Describe(NumberType(), {"m, upwards", "m，向上"})},
       {"joint", WordType(c_strJoints)},
       {"restraint", Describe(TextType("^[01]{6}$"), {"X Y Z RX RY RZ, 1 = restrained", "X Y Z RX RY RZ，1 为约束"})},
       {"spring", Describe(IntegerType(0, c_nMaxSpringGroups),
                           {"spring group, instead of a restraint", "弹簧组，代替 restraint"})}},
      {"id", "x", "y", "z"});
}

Json DescribeSpring() {
  return ObjectType({{"group", IntegerType(0, c_nMaxSpringGroups)},
                     {"kx", DescribeUnit(NumberType(), "kN/mm")},
                     {"ky", DescribeUnit(NumberType(), "kN/mm")},
                     {"kz", DescribeUnit(NumberType(), "kN/mm")}},
                    {"group"});
}

Json DescribeSection() {
  return ObjectType(
      {{"id", Describe(TextType(), {"name of the section, unique", "截面名，不得重复"})},
       {"shape", Describe(IntegerType(1, 6), {"gives the shear coefficient", "决定剪切系数"})},
       {"area", DescribeUnit(NumberType(0.0), "mm²")},
       {"Ix", Describe(NumberType(0.0), {"mm⁴, torsion; 0: Iy + Iz", "mm⁴，扭转；0 为 Iy + Iz"})},
       {"Iy", Describe(NumberType(0.0), {"mm⁴, vertical bending of a horizontal beam", "mm⁴，水平梁的竖向弯曲"})},
       {"Iz", Describe(NumberType(0.0), {"mm⁴, horizontal bending of a horizontal beam", "mm⁴，水平梁的水平弯曲"})}},
      {"id", "area"});
}

Json DescribeElement() {
  return ObjectType({{"type", WordType(c_strElementTypes)},
                     {"i", Describe(IntegerType(), {"id of the first node", "第一个节点的 id"})},
                     {"j", Describe(IntegerType(), {"id of the second node", "第二个节点的 id"})},
                     {"section", Describe(TextType(), {"id of the section", "截面的 id"})}},
                    {"type", "i", "j", "section"});
}

Json DescribeLoad() {
  return ObjectType(
      {{"case", Describe(IntegerType(0, c_nLoadTypes - 1), {"0 dead load, 1… live loads", "0 为恒荷载，1… 为活荷载"})},
       {"node", Describe(IntegerType(), {"id of the node", "节点的 id"})},
       {"direction", WordType(c_strDirections)},
       {"value", Describe(NumberType(), {"kN, kN·m; positive along the global axis", "kN、kN·m；沿整体坐标轴为正"})}},
      {"case", "node", "direction", "value"});
}

}  // namespace

std::string FormatJobSchema() {
  const Json analyses = {{"oneOf",
                          {DescribeAnalysis<StaticJob>(), DescribeAnalysis<ModalJob>(), DescribeAnalysis<SpectrumJob>(),
                           DescribeAnalysis<WilsonJob>(), DescribeAnalysis<NewmarkJob>()}}};
  Json members = {{"$schema", TextType()},
                  {"title", TextType()},
                  {"nodes", ArrayType(DescribeNode())},
                  {"springs", ArrayType(DescribeSpring())},
                  {"sections", ArrayType(DescribeSection())},
                  {"elements", ArrayType(DescribeElement())},
                  {"inclined_supports", ArrayType(IntegerType())},
                  {"loads", ArrayType(DescribeLoad())},
                  {"analyses", ArrayType(analyses)},
                  {"report", DescribeReportFields()}};
  for (const ArrayCapacity& capacity : c_capacities) members[capacity.strKey]["maxItems"] = capacity.nEntries;
  Json schema = {{"$schema", "http://json-schema.org/draft-07/schema#"}, {"title", "Skyframe job"}};
  schema.update(ObjectType(std::move(members), {"nodes", "elements"}));
  return schema.dump(2) + '\n';
}

}  // namespace skyframe::host
