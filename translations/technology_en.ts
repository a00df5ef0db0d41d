<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="zh_CN">
<context>
    <name>TechnologyWidget</name>
    <message>
        <source>传送带参数</source>
        <translation>Conveyor parameters</translation>
    </message>
    <message>
        <source>返回</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>全局参数</source>
        <translation>Global parameters</translation>
    </message>
    <message>
        <source>切割参数</source>
        <translation>Cutting parameters</translation>
    </message>
    <message>
        <source>模拟量匹配</source>
        <translation>Analog matching</translation>
    </message>
    <message>
        <source>IO设置</source>
        <translation>IO</translation>
    </message>
    <message>
        <source>手动操作</source>
        <translation>Manual operation</translation>
    </message>
    <message>
        <source>码垛参数</source>
        <translation>Parameters</translation>
    </message>
    <message>
        <source>位置调试</source>
        <translation>Location</translation>
    </message>
    <message>
        <source>生成文件</source>
        <translation>Generate job</translation>
    </message>
    <message>
        <source>多重码垛</source>
        <translation>Multiple pallets</translation>
    </message>
    <message>
        <source>抓手1电磁阀</source>
        <translation>Gripper 1 valve</translation>
    </message>
    <message>
        <source>抓手2电磁阀</source>
        <translation>Gripper 2 valve</translation>
    </message>
    <message>
        <source>抓手3电磁阀</source>
        <translation>Gripper 3 valve</translation>
    </message>
    <message>
        <source>抓手4电磁阀</source>
        <translation>Gripper 4 valve</translation>
    </message>
    <message>
        <source>取料允许信号</source>
        <translation>Pick permission</translation>
    </message>
    <message>
        <source>抓手1取料成功判断</source>
        <translation>Gripper 1 picked</translation>
    </message>
    <message>
        <source>抓手2取料成功判断</source>
        <translation>Gripper 2 picked</translation>
    </message>
    <message>
        <source>抓手3取料成功判断</source>
        <translation>Gripper 3 picked</translation>
    </message>
    <message>
        <source>抓手4取料成功判断</source>
        <translation>Gripper 4 picked</translation>
    </message>
    <message>
        <source>打磨参数</source>
        <translation>Polishing parameters</translation>
    </message>
    <message>
        <source>打磨工艺参数</source>
        <translation>Polishing parameters</translation>
    </message>
    <message>
        <source>工艺号</source>
        <translation>Process no.</translation>
    </message>
    <message>
        <source>参数</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>数值</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>注释</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>工具磨损补偿</source>
        <translation>Tool wear</translation>
    </message>
    <message>
        <source>工具磨损后的补偿量(mm)</source>
        <translation>Compensation for a worn tool (mm)</translation>
    </message>
    <message>
        <source>起点工具X方向偏移</source>
        <translation>Start offset X</translation>
    </message>
    <message>
        <source>在打磨起点工具坐标X方向的偏移(mm)</source>
        <translation>Tool X at the start of polishing (mm)</translation>
    </message>
    <message>
        <source>起点工具Y方向偏移</source>
        <translation>Start offset Y</translation>
    </message>
    <message>
        <source>在打磨起点工具坐标Y方向的偏移(mm)</source>
        <translation>Tool Y at the start of polishing (mm)</translation>
    </message>
    <message>
        <source>起点工具Z方向偏移</source>
        <translation>Start offset Z</translation>
    </message>
    <message>
        <source>在打磨起点工具坐标Z方向的偏移(mm)</source>
        <translation>Tool Z at the start of polishing (mm)</translation>
    </message>
    <message>
        <source>终点工具X方向偏移</source>
        <translation>End offset X</translation>
    </message>
    <message>
        <source>在打磨终点工具坐标X方向的偏移(mm)</source>
        <translation>Tool X at the end of polishing (mm)</translation>
    </message>
    <message>
        <source>终点工具Y方向偏移</source>
        <translation>End offset Y</translation>
    </message>
    <message>
        <source>在打磨终点工具坐标Y方向的偏移(mm)</source>
        <translation>Tool Y at the end of polishing (mm)</translation>
    </message>
    <message>
        <source>终点工具Z方向偏移</source>
        <translation>End offset Z</translation>
    </message>
    <message>
        <source>在打磨终点工具坐标Z方向的偏移(mm)</source>
        <translation>Tool Z at the end of polishing (mm)</translation>
    </message>
    <message>
        <source>自动补偿值</source>
        <translation>Auto compensation</translation>
    </message>
    <message>
        <source>以一定打磨次数为周期补偿(mm)</source>
        <translation>Added once per number of cycles (mm)</translation>
    </message>
    <message>
        <source>自动补偿周期</source>
        <translation>Auto comp. cycle</translation>
    </message>
    <message>
        <source>次</source>
        <translation>cycles</translation>
    </message>
    <message>
        <source>补偿周期(次数)</source>
        <translation>Cycles between two compensations</translation>
    </message>
    <message>
        <source>修改</source>
        <translation>Modify</translation>
    </message>
    <message>
        <source>打开</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>码垛工艺</source>
        <translation>Palletising</translation>
    </message>
    <message>
        <source>焊接设置</source>
        <translation>Welding</translation>
    </message>
    <message>
        <source>视觉设置</source>
        <translation>Vision</translation>
    </message>
    <message>
        <source>激光切割工艺</source>
        <translation>Laser cutting</translation>
    </message>
    <message>
        <source>专用工艺</source>
        <translation>Special process</translation>
    </message>
    <message>
        <source>传送带跟踪工艺</source>
        <translation>Conveyor tracking</translation>
    </message>
    <message>
        <source>打磨工艺</source>
        <translation>Polishing</translation>
    </message>
    <message>
        <source>电批</source>
        <translation>Screwdriver</translation>
    </message>
    <message>
        <source>喷涂工艺</source>
        <translation>Spraying</translation>
    </message>
    <message>
        <source>用户</source>
        <translation>Users</translation>
    </message>
    <message>
        <source>模拟量设置</source>
        <translation>Analog</translation>
    </message>
    <message>
        <source>数字量设置</source>
        <translation>Digital</translation>
    </message>
    <message>
        <source>时序</source>
        <translation>Sequence</translation>
    </message>
    <message>
        <source>轨迹参数</source>
        <translation>Track</translation>
    </message>
    <message>
        <source>开枪时序</source>
        <translation>Gun sequence</translation>
    </message>
    <message>
        <source>换料时序</source>
        <translation>Material sequence</translation>
    </message>
    <message>
        <source>喷漆</source>
        <translation>Paint</translation>
    </message>
    <message>
        <source>除尘</source>
        <translation>Dust</translation>
    </message>
    <message>
        <source>油量测试</source>
        <translation>Oil test</translation>
    </message>
    <message>
        <source>pallet tool parameter error!</source>
        <translation>pallet tool parameter error!</translation>
    </message>
    <message>
        <source>pallet tray parameter error!</source>
        <translation>pallet tray parameter error!</translation>
    </message>
    <message>
        <source>pallet position parameter error！</source>
        <translation>pallet position parameter error！</translation>
    </message>
    <message>
        <source>palleteasy position parameter error！</source>
        <translation>palleteasy position parameter error！</translation>
    </message>
    <message>
        <source>pallet workpiece parameter error!</source>
        <translation>pallet workpiece parameter error!</translation>
    </message>
    <message>
        <source>pallet approach parameter error!</source>
        <translation>pallet approach parameter error!</translation>
    </message>
    <message>
        <source>pallet overlapping parameter error!</source>
        <translation>pallet overlapping parameter error!</translation>
    </message>
    <message>
        <source>pallet plane parameter error!</source>
        <translation>pallet plane parameter error!</translation>
    </message>
    <message>
        <source>无</source>
        <translation>None</translation>
    </message>
    <message>
        <source>激光切割设置</source>
        <translation>Laser cutting settings</translation>
    </message>
    <message>
        <source>电批工艺</source>
        <translation>Screwdriver process</translation>
    </message>
    <message>
        <source>参数工具磨损补偿不合理，请重新设置</source>
        <translation>The tool wear is not a number; please set it again</translation>
    </message>
    <message>
        <source>参数起点工具X方向偏移不合理，请重新设置</source>
        <translation>The start offset X is not a number; please set it again</translation>
    </message>
    <message>
        <source>参数起点工具Y方向偏移不合理，请重新设置</source>
        <translation>The start offset Y is not a number; please set it again</translation>
    </message>
    <message>
        <source>参数起点工具Z方向偏移不合理，请重新设置</source>
        <translation>The start offset Z is not a number; please set it again</translation>
    </message>
    <message>
        <source>参数终点工具X方向偏移不合理，请重新设置</source>
        <translation>The end offset X is not a number; please set it again</translation>
    </message>
    <message>
        <source>参数终点工具Y方向偏移不合理，请重新设置</source>
        <translation>The end offset Y is not a number; please set it again</translation>
    </message>
    <message>
        <source>参数终点工具Z方向偏移不合理，请重新设置</source>
        <translation>The end offset Z is not a number; please set it again</translation>
    </message>
    <message>
        <source>参数自动补偿值不合理，请重新设置</source>
        <translation>The auto compensation is not a number; please set it again</translation>
    </message>
    <message>
        <source>参数自动补偿周期不合理，请重新设置</source>
        <translation>The compensation cycle is not a whole number; please set it again</translation>
    </message>
    <message>
        <source>自动补偿周期不能为负数</source>
        <translation>The compensation cycle must not be negative</translation>
    </message>
    <message>
        <source>保存</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>固定放货点高度</source>
        <translation>Fixed place height</translation>
    </message>
    <message>
        <source>上一页</source>
        <translation>Previous</translation>
    </message>
    <message>
        <source>下一页</source>
        <translation>Next</translation>
    </message>
    <message>
        <source>竖直方向排列</source>
        <translation>Column by column</translation>
    </message>
    <message>
        <source>打开后，一个位置先码满所有层，再码下一个位置。每一层的图形因此必须一样，重复关系固定为“相同”。</source>
        <translation>On: one place is stacked through all layers before the next begins. So every layer must have the same pattern, and the repeat mode stays at &quot;Same&quot;.</translation>
    </message>
    <message>
        <source>层自动对齐</source>
        <translation>Align layers</translation>
    </message>
    <message>
        <source>打开后，大小不同的各层对齐到同一条中线上。关闭时，每一层都按自己图形里的位置码放。</source>
        <translation>On: layers of different size are aligned to one centre line. Off: each layer is placed where its own pattern says.</translation>
    </message>
    <message>
        <source>姿态自动旋转</source>
        <translation>Turn the gripper</translation>
    </message>
    <message>
        <source>打开后，工件在图形里转过的角度，抓手也跟着转。关闭时，抓手的姿态保持不变。</source>
        <translation>On: the gripper turns with the angle that a piece has in its pattern. Off: the gripper keeps its orientation.</translation>
    </message>
    <message>
        <source>重复关系：相同、交替</source>
        <translation>Repeat modes: same, alternating</translation>
    </message>
    <message>
        <source>相同</source>
        <translation>Same</translation>
    </message>
    <message>
        <source>交替</source>
        <translation>Alternating</translation>
    </message>
    <message>
        <source>相同：所有层使用第1层的图形和高度修正。交替：奇数层跟随第1层，偶数层跟随第2层。</source>
        <translation>Same: all layers take pattern and height of layer 1. Alternating: odd layers follow layer 1, even layers follow layer 2.</translation>
    </message>
    <message>
        <source>重复关系：自定义</source>
        <translation>Repeat mode: custom</translation>
    </message>
    <message>
        <source>自定义</source>
        <translation>Custom</translation>
    </message>
    <message>
        <source>“重复”按钮</source>
        <translation>The button &quot;Repeat&quot;</translation>
    </message>
    <message>
        <source>自定义：每一层的图形单独选择。在表中选中一层再按“重复”，它下面的各层就从这一层起依次重复；选中第1层时，所有层都使用第1层的图形。高度修正不变。</source>
        <translation>Custom: each layer has a pattern of its own. Select a layer and press &quot;Repeat&quot;: from there on the layers below it are repeated in turn; with layer 1 selected, all layers take its pattern. Heights stay.</translation>
    </message>
    <message>
        <source>工件参数</source>
        <translation>Workpiece</translation>
    </message>
    <message>
        <source>工艺号:1</source>
        <translation>Process no. 1</translation>
    </message>
    <message>
        <source>工件尺寸</source>
        <translation>Size of a workpiece</translation>
    </message>
    <message>
        <source>长（托盘Y方向）(mm)</source>
        <translation>Length, along tray Y (mm)</translation>
    </message>
    <message>
        <source>工件长</source>
        <translation>Length</translation>
    </message>
    <message>
        <source>宽（托盘X方向）(mm)</source>
        <translation>Width, along tray X (mm)</translation>
    </message>
    <message>
        <source>工件宽</source>
        <translation>Width</translation>
    </message>
    <message>
        <source>高（托盘Z方向）(mm)</source>
        <translation>Height, along tray Z (mm)</translation>
    </message>
    <message>
        <source>工件高</source>
        <translation>Height</translation>
    </message>
    <message>
        <source>工件间隙</source>
        <translation>Gaps</translation>
    </message>
    <message>
        <source>托盘X方向间隙(mm)</source>
        <translation>Gap along tray X (mm)</translation>
    </message>
    <message>
        <source>托盘X方向间隙</source>
        <translation>Gap along X</translation>
    </message>
    <message>
        <source>托盘Y方向间隙(mm)</source>
        <translation>Gap along tray Y (mm)</translation>
    </message>
    <message>
        <source>托盘Y方向间隙</source>
        <translation>Gap along Y</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>接近参数</source>
        <translation>Approach</translation>
    </message>
    <message>
        <source>接近方式</source>
        <translation>Way</translation>
    </message>
    <message>
        <source>接近使能</source>
        <translation>Approach</translation>
    </message>
    <message>
        <source>下降接近</source>
        <translation>Down, then in</translation>
    </message>
    <message>
        <source>接近下降</source>
        <translation>In, then down</translation>
    </message>
    <message>
        <source>接近长度</source>
        <translation>Lengths</translation>
    </message>
    <message>
        <source>托盘X方向长度(mm)</source>
        <translation>Along tray X (mm)</translation>
    </message>
    <message>
        <source>托盘X方向长度</source>
        <translation>Length along X</translation>
    </message>
    <message>
        <source>托盘Y方向长度(mm)</source>
        <translation>Along tray Y (mm)</translation>
    </message>
    <message>
        <source>托盘Y方向长度</source>
        <translation>Length along Y</translation>
    </message>
    <message>
        <source>托盘Z方向长度(mm)</source>
        <translation>Along tray Z (mm)</translation>
    </message>
    <message>
        <source>托盘Z方向长度</source>
        <translation>Length along Z</translation>
    </message>
    <message>
        <source>重叠模式</source>
        <translation>Layers</translation>
    </message>
    <message>
        <source>说明</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>层与重复</source>
        <translation>Layers and repeat</translation>
    </message>
    <message>
        <source>层数</source>
        <translation>Layers</translation>
    </message>
    <message>
        <source>重复关系</source>
        <translation>Repeat</translation>
    </message>
    <message>
        <source>重复</source>
        <translation>Repeat</translation>
    </message>
    <message>
        <source>码放方式</source>
        <translation>Placing</translation>
    </message>
    <message>
        <source>放货点高度补偿(mm)</source>
        <translation>Place height offset (mm)</translation>
    </message>
    <message>
        <source>放货点高度补偿</source>
        <translation>Place height offset</translation>
    </message>
    <message>
        <source>完整码垛</source>
        <translation>Complete</translation>
    </message>
    <message>
        <source>依次设置下列各页，或直接进入其中一页</source>
        <translation>Set up these pages one after the other, or go straight to one of them</translation>
    </message>
    <message>
        <source>1  抓手设置</source>
        <translation>1  Grippers</translation>
    </message>
    <message>
        <source>2  托盘设置</source>
        <translation>2  Tray</translation>
    </message>
    <message>
        <source>3  位置设置</source>
        <translation>3  Positions</translation>
    </message>
    <message>
        <source>4  工件参数</source>
        <translation>4  Workpiece</translation>
    </message>
    <message>
        <source>5  接近参数</source>
        <translation>5  Approach</translation>
    </message>
    <message>
        <source>6  重叠模式</source>
        <translation>6  Layers</translation>
    </message>
    <message>
        <source>7  平面模式</source>
        <translation>7  Pattern</translation>
    </message>
    <message>
        <source>开始设置</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>抓手设置</source>
        <translation>Grippers</translation>
    </message>
    <message>
        <source>抓手个数</source>
        <translation>Number of grippers</translation>
    </message>
    <message>
        <source>工具坐标：位置 mm，姿态 rad</source>
        <translation>Tool frame: position in mm, orientation in rad</translation>
    </message>
    <message>
        <source>工具号</source>
        <translation>Tool no.</translation>
    </message>
    <message>
        <source>抓手1</source>
        <translation>Gripper 1</translation>
    </message>
    <message>
        <source>抓手2</source>
        <translation>Gripper 2</translation>
    </message>
    <message>
        <source>抓手3</source>
        <translation>Gripper 3</translation>
    </message>
    <message>
        <source>抓手4</source>
        <translation>Gripper 4</translation>
    </message>
    <message>
        <source>托盘设置</source>
        <translation>Tray</translation>
    </message>
    <message>
        <source>用户坐标系</source>
        <translation>User coordinates</translation>
    </message>
    <message>
        <source>标定点</source>
        <translation>Calibration points</translation>
    </message>
    <message>
        <source>托盘原点</source>
        <translation>Origin</translation>
    </message>
    <message>
        <source>标记</source>
        <translation>Mark</translation>
    </message>
    <message>
        <source>托盘X方向</source>
        <translation>X direction</translation>
    </message>
    <message>
        <source>托盘Y方向</source>
        <translation>Y direction</translation>
    </message>
    <message>
        <source>将机器人依次移到三个点并标记，再计算托盘的用户坐标系</source>
        <translation>Move the robot to each of the three points and mark it, then calculate the user coordinates of the tray</translation>
    </message>
    <message>
        <source>计算</source>
        <translation>Calculate</translation>
    </message>
    <message>
        <source>简易码垛</source>
        <translation>Easy</translation>
    </message>
    <message>
        <source>2  位置设置</source>
        <translation>2  Positions</translation>
    </message>
    <message>
        <source>码垛类型</source>
        <translation>Palletising type</translation>
    </message>
    <message>
        <source>选择当前工艺号的码垛模式</source>
        <translation>Choose the palletising mode of this process number</translation>
    </message>
    <message>
        <source>已设定为完整码垛</source>
        <translation>Set to complete mode</translation>
    </message>
    <message>
        <source>复制参数</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>清空参数</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>图形编号</source>
        <translation>Pattern no.</translation>
    </message>
    <message>
        <source>图形模板</source>
        <translation>Template</translation>
    </message>
    <message>
        <source>行列</source>
        <translation>Ranks</translation>
    </message>
    <message>
        <source>纵横交错</source>
        <translation>Crisscross</translation>
    </message>
    <message>
        <source>回字型</source>
        <translation>Hui type</translation>
    </message>
    <message>
        <source>X平移补偿</source>
        <translation>Shift X</translation>
    </message>
    <message>
        <source>Y平移补偿</source>
        <translation>Shift Y</translation>
    </message>
    <message>
        <source>X方向个数</source>
        <translation>Number along X</translation>
    </message>
    <message>
        <source>行列X方向个数</source>
        <translation>Ranks, number along X</translation>
    </message>
    <message>
        <source>个</source>
        <translation>pcs</translation>
    </message>
    <message>
        <source>Y方向个数</source>
        <translation>Number along Y</translation>
    </message>
    <message>
        <source>行列Y方向个数</source>
        <translation>Ranks, number along Y</translation>
    </message>
    <message>
        <source>整体旋转（°）</source>
        <translation>Turn of the whole (°)</translation>
    </message>
    <message>
        <source>0</source>
        <translation>0</translation>
    </message>
    <message>
        <source>90</source>
        <translation>90</translation>
    </message>
    <message>
        <source>180</source>
        <translation>180</translation>
    </message>
    <message>
        <source>-90</source>
        <translation>-90</translation>
    </message>
    <message>
        <source>单件旋转（°）</source>
        <translation>Turn of each piece (°)</translation>
    </message>
    <message>
        <source>转换为自定义</source>
        <translation>Convert to custom</translation>
    </message>
    <message>
        <source>纵横交错X方向个数</source>
        <translation>Crisscross, number along X</translation>
    </message>
    <message>
        <source>纵横交错Y方向个数</source>
        <translation>Crisscross, number along Y</translation>
    </message>
    <message>
        <source>工件总数</source>
        <translation>Workpieces</translation>
    </message>
    <message>
        <source>拖拽设置</source>
        <translation>Drag</translation>
    </message>
    <message>
        <source>预览</source>
        <translation>Preview</translation>
    </message>
    <message>
        <source>接近方向说明</source>
        <translation>Directions</translation>
    </message>
    <message>
        <source>上移</source>
        <translation>Up</translation>
    </message>
    <message>
        <source>下移</source>
        <translation>Down</translation>
    </message>
    <message>
        <source>页</source>
        <translation>Page</translation>
    </message>
    <message>
        <source>/1</source>
        <translation>/1</translation>
    </message>
    <message>
        <source>结束</source>
        <translation>Finish</translation>
    </message>
    <message>
        <source>复制图形</source>
        <translation>Copy pattern</translation>
    </message>
    <message>
        <source>位置标定</source>
        <translation>Position teaching</translation>
    </message>
    <message>
        <source>位置 mm，姿态 rad</source>
        <translation>Position mm, angles rad</translation>
    </message>
    <message>
        <source>示教点</source>
        <translation>Taught points</translation>
    </message>
    <message>
        <source>当前位置</source>
        <translation>Current</translation>
    </message>
    <message>
        <source>入口点</source>
        <translation>Entrance</translation>
    </message>
    <message>
        <source>标定为当前位置</source>
        <translation>Set to current</translation>
    </message>
    <message>
        <source>运动到该点</source>
        <translation>Move to this point</translation>
    </message>
    <message>
        <source>辅助点</source>
        <translation>Auxiliary</translation>
    </message>
    <message>
        <source>作业点</source>
        <translation>Job</translation>
    </message>
    <message>
        <source>坐标系</source>
        <translation>Coordinates</translation>
    </message>
    <message>
        <source>关节</source>
        <translation>Joint</translation>
    </message>
    <message>
        <source>点位</source>
        <translation>Stored</translation>
    </message>
    <message>
        <source>托盘X方向长度参数有误!</source>
        <translation>The length along X is wrong!</translation>
    </message>
    <message>
        <source>托盘Y方向长度参数有误!</source>
        <translation>The length along Y is wrong!</translation>
    </message>
    <message>
        <source>托盘Z方向长度参数有误!</source>
        <translation>The length along Z is wrong!</translation>
    </message>
    <message>
        <source>设置接近信息</source>
        <translation>Approach set</translation>
    </message>
    <message>
        <source>直角</source>
        <translation>Cartesian</translation>
    </message>
    <message>
        <source>工具</source>
        <translation>Tool</translation>
    </message>
    <message>
        <source>设置抓手信息</source>
        <translation>Gripper settings saved</translation>
    </message>
    <message>
        <source>层</source>
        <translation>Layer</translation>
    </message>
    <message>
        <source>高度修正</source>
        <translation>Height</translation>
    </message>
    <message>
        <source>第%1层高度修正</source>
        <translation>Height of layer %1</translation>
    </message>
    <message>
        <source>已设定为简易码垛</source>
        <translation>Set to easy mode</translation>
    </message>
    <message>
        <source>未设定</source>
        <translation>Not set</translation>
    </message>
    <message>
        <source>切换成功,当前为简易码垛模式</source>
        <translation>Changed: easy mode is in force</translation>
    </message>
    <message>
        <source>切换成功,当前为完整码垛模式</source>
        <translation>Changed: complete mode is in force</translation>
    </message>
    <message>
        <source>工艺号:%1</source>
        <translation>Process no. %1</translation>
    </message>
    <message>
        <source>工艺号%1</source>
        <translation>process no. %1</translation>
    </message>
    <message>
        <source>请上电！</source>
        <translation>Please power on!</translation>
    </message>
    <message>
        <source>放货点高度补偿参数有误!</source>
        <translation>The place height offset is wrong!</translation>
    </message>
    <message>
        <source>高度修正值范围为[-5000-5000]!</source>
        <translation>A height lies within -5000 and 5000!</translation>
    </message>
    <message>
        <source>设置重叠模式</source>
        <translation>Layers set</translation>
    </message>
    <message>
        <source>X方向平移距离参数有误!</source>
        <translation>The shift along X is wrong!</translation>
    </message>
    <message>
        <source>Y方向平移距离参数有误!</source>
        <translation>The shift along Y is wrong!</translation>
    </message>
    <message>
        <source>行列X方向个数参数有误!</source>
        <translation>Ranks: the number along X is wrong!</translation>
    </message>
    <message>
        <source>行列Y方向个数参数有误!</source>
        <translation>Ranks: the number along Y is wrong!</translation>
    </message>
    <message>
        <source>纵横交错X方向个数参数有误!</source>
        <translation>Crisscross: the number along X is wrong!</translation>
    </message>
    <message>
        <source>纵横交错Y方向个数参数有误!</source>
        <translation>Crisscross: the number along Y is wrong!</translation>
    </message>
    <message>
        <source>X自动平移距离%1</source>
        <translation>Automatic shift X %1</translation>
    </message>
    <message>
        <source>Y自动平移距离%1</source>
        <translation>Automatic shift Y %1</translation>
    </message>
    <message>
        <source>自定义图形不能在此保存</source>
        <translation>A custom pattern cannot be saved here</translation>
    </message>
    <message>
        <source>设置平面模式</source>
        <translation>Pattern set</translation>
    </message>
    <message>
        <source>位置 mm，姿态 °</source>
        <translation>Position mm, angles °</translation>
    </message>
    <message>
        <source>设置位置信息</source>
        <translation>Set position information</translation>
    </message>
    <message>
        <source>操作失败，请重新标定！</source>
        <translation>Failed, please calibrate again</translation>
    </message>
    <message>
        <source>接收用户坐标标定成功</source>
        <translation>User coordinates calibrated</translation>
    </message>
    <message>
        <source>计算失败，请重新标定!</source>
        <translation>Calculation failed, please calibrate again</translation>
    </message>
    <message>
        <source>接收用户坐标标定失败</source>
        <translation>User coordinates could not be calibrated</translation>
    </message>
    <message>
        <source>设置托盘信息</source>
        <translation>Tray settings saved</translation>
    </message>
    <message>
        <source>发送切换用户坐标 userNum=%1</source>
        <translation>User coordinates switched, userNum=%1</translation>
    </message>
    <message>
        <source>用户坐标切换成功！当前为：</source>
        <translation>User coordinates switched, now: </translation>
    </message>
    <message>
        <source>工件尺寸长参数有误!</source>
        <translation>The length is wrong!</translation>
    </message>
    <message>
        <source>工件尺寸长应不超过5000!</source>
        <translation>The length must not exceed 5000!</translation>
    </message>
    <message>
        <source>工件尺寸宽参数有误!</source>
        <translation>The width is wrong!</translation>
    </message>
    <message>
        <source>工件尺寸宽应不超过5000!</source>
        <translation>The width must not exceed 5000!</translation>
    </message>
    <message>
        <source>工件尺寸高参数有误!</source>
        <translation>The height is wrong!</translation>
    </message>
    <message>
        <source>工件尺寸高应不超过5000!</source>
        <translation>The height must not exceed 5000!</translation>
    </message>
    <message>
        <source>托盘X方向间隙参数有误!</source>
        <translation>The gap along X is wrong!</translation>
    </message>
    <message>
        <source>托盘X方向间隙应不超过3000!</source>
        <translation>The gap along X must not exceed 3000!</translation>
    </message>
    <message>
        <source>托盘Y方向间隙参数有误!</source>
        <translation>The gap along Y is wrong!</translation>
    </message>
    <message>
        <source>托盘Y方向间隙应不超过3000!</source>
        <translation>The gap along Y must not exceed 3000!</translation>
    </message>
    <message>
        <source>设置工件信息</source>
        <translation>Workpiece set</translation>
    </message>
    <message>
        <source>打开后，每一层都在同一个高度松开工件。关闭时，松开工件的高度随层数升高。</source>
        <translation>On: every layer lets go of its pieces at one height. Off: the height rises with the layers.</translation>
    </message>
    <message>
        <source>完整码垛导航</source>
        <translation>Complete mode</translation>
    </message>
    <message>
        <source>简易码垛导航</source>
        <translation>Easy mode</translation>
    </message>
    <message>
        <source>关</source>
        <translation>Off</translation>
    </message>
    <message>
        <source>开</source>
        <translation>On</translation>
    </message>
    <message>
        <source>程序与工艺</source>
        <translation>Program and process</translation>
    </message>
    <message>
        <source>要生成的程序</source>
        <translation>Program to generate</translation>
    </message>
    <message>
        <source>功能</source>
        <translation>Function</translation>
    </message>
    <message>
        <source>码垛</source>
        <translation>Palletise</translation>
    </message>
    <message>
        <source>卸垛</source>
        <translation>Depalletise</translation>
    </message>
    <message>
        <source>程序名</source>
        <translation>Program name</translation>
    </message>
    <message>
        <source>生成的程序存入当前机器人的作业目录。</source>
        <translation>The program goes into the current robot&apos;s job directory.</translation>
    </message>
    <message>
        <source>关节值</source>
        <translation>Joint values</translation>
    </message>
    <message>
        <source>取料点</source>
        <translation>Pick point</translation>
    </message>
    <message>
        <source>取料点上方</source>
        <translation>Above pick point</translation>
    </message>
    <message>
        <source>取料安全点</source>
        <translation>Safe pick point</translation>
    </message>
    <message>
        <source>抓手与信号</source>
        <translation>Grippers and signals</translation>
    </message>
    <message>
        <source>抓手电磁阀（数字输出）</source>
        <translation>Gripper valves (digital outputs)</translation>
    </message>
    <message>
        <source>端口</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>有效值</source>
        <translation>Active</translation>
    </message>
    <message>
        <source>取料成功判断（数字输入）</source>
        <translation>Part gripped (digital inputs)</translation>
    </message>
    <message>
        <source>取料允许（数字输入）</source>
        <translation>Pick permission (digital input)</translation>
    </message>
    <message>
        <source>变量</source>
        <translation>Variable</translation>
    </message>
    <message>
        <source>计数变量</source>
        <translation>Count variables</translation>
    </message>
    <message>
        <source>类型</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>当前已码总数</source>
        <translation>Pieces stacked</translation>
    </message>
    <message>
        <source>当前码垛层数</source>
        <translation>Current layer</translation>
    </message>
    <message>
        <source>当前层码垛数</source>
        <translation>Pieces in this layer</translation>
    </message>
    <message>
        <source>结束变量</source>
        <translation>End variable</translation>
    </message>
    <message>
        <source>码垛结束判断</source>
        <translation>Palletising finished</translation>
    </message>
    <message>
        <source>插补与路径</source>
        <translation>Interpolation and path</translation>
    </message>
    <message>
        <source>插补方式</source>
        <translation>Interpolation</translation>
    </message>
    <message>
        <source>取料过程</source>
        <translation>Picking</translation>
    </message>
    <message>
        <source>取料点上方-取料点</source>
        <translation>Above pick point - pick point</translation>
    </message>
    <message>
        <source>关节插补</source>
        <translation>Joint</translation>
    </message>
    <message>
        <source>直线插补</source>
        <translation>Linear</translation>
    </message>
    <message>
        <source>中间过程</source>
        <translation>Between</translation>
    </message>
    <message>
        <source>取料点上方-码垛入口点</source>
        <translation>Above pick point - pallet entrance</translation>
    </message>
    <message>
        <source>码垛过程</source>
        <translation>Palletising</translation>
    </message>
    <message>
        <source>码垛入口点-码垛辅助点-工件点</source>
        <translation>Pallet entrance - auxiliary point - workpiece</translation>
    </message>
    <message>
        <source>到入口点的路径</source>
        <translation>Way to the entrance point</translation>
    </message>
    <message>
        <source>xy方向路径优化</source>
        <translation>Optimise the path in x and y</translation>
    </message>
    <message>
        <source>z方向路径优化</source>
        <translation>Optimise the path in z</translation>
    </message>
    <message>
        <source>完成</source>
        <translation>Finish</translation>
    </message>
    <message>
        <source>变量名不能为空，请重新选择</source>
        <translation>A variable is missing; choose one</translation>
    </message>
    <message>
        <source>放料点</source>
        <translation>Place point</translation>
    </message>
    <message>
        <source>放料点上方</source>
        <translation>Above place point</translation>
    </message>
    <message>
        <source>放料安全点</source>
        <translation>Safe place point</translation>
    </message>
    <message>
        <source>卸跺过程</source>
        <translation>Depalletising</translation>
    </message>
    <message>
        <source>放料过程</source>
        <translation>Placing</translation>
    </message>
    <message>
        <source>卸跺入口点-卸跺辅助点-工件点</source>
        <translation>Pallet entrance - auxiliary point - workpiece</translation>
    </message>
    <message>
        <source>卸跺点上方-放料入口点</source>
        <translation>Above pallet place - place entrance</translation>
    </message>
    <message>
        <source>放料点上方-放料点</source>
        <translation>Above place point - place point</translation>
    </message>
    <message>
        <source>未检测到IO，无法使用该功能</source>
        <translation>No IO found; this function cannot be used</translation>
    </message>
    <message>
        <source>该名称已经存在，请重新命名其他名称！</source>
        <translation>This name exists already; choose another one!</translation>
    </message>
    <message>
        <source>文件命名不符合规范！</source>
        <translation>This is no valid file name!</translation>
    </message>
    <message>
        <source>标定未完成！</source>
        <translation>Not all points are marked yet!</translation>
    </message>
    <message>
        <source>抓手1电磁阀端口不能为 无！</source>
        <translation>The port of the gripper 1 valve must not be None!</translation>
    </message>
    <message>
        <source>工艺号:%1  %2  %3</source>
        <translation>Process no. %1  %2  %3</translation>
    </message>
    <message>
        <source>关节值（转动轴 °）</source>
        <translation>Joint values (rotary axes in °)</translation>
    </message>
    <message>
        <source>关节值（转动轴 rad）</source>
        <translation>Joint values (rotary axes in rad)</translation>
    </message>
    <message>
        <source>计数与结束</source>
        <translation>Counts and end</translation>
    </message>
    <message>
        <source>MovJ</source>
        <translation>MovJ</translation>
    </message>
    <message>
        <source>BOOL</source>
        <translation>BOOL</translation>
    </message>
    <message>
        <source>MovL</source>
        <translation>MovL</translation>
    </message>
    <message>
        <source>码垛文件生成成功！</source>
        <translation>Palletising program generated.</translation>
    </message>
    <message>
        <source>高度修正 mm</source>
        <translation>Heights in mm</translation>
    </message>
    <message>
        <source>若仅有一个抓手，请切换到该抓手的工具手后
标定以下各点
若有多个抓手，请用切换到第一个抓手的工具
手后标定以下各点</source>
        <translation>With one gripper only, switch to its tool frame
before you teach the points below.
With several grippers, switch to the tool frame
of the first one before you teach them.</translation>
    </message>
</context>
<context>
    <name>VariableBox</name>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
</context>
</TS>
