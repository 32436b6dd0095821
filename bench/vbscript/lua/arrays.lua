-- Array fill and sum: 1,000,000 elements (arrays.vbs), in a table indexed from 0.
local s
local function bench()
  local a = {}
  for i = 0, 999999 do
    a[i] = i * 2
  end
  s = 0
  for i = 0, 999999 do
    s = s + a[i]
  end
end
return bench
