import {chromium} from './puppets.js';
import {begin,tap,sleep,PLAY,tapOn,press} from './browser.js';
import {writeFileSync} from 'node:fs';
await chromium.launch();
const S=[[320,454,2,1],[360,560,3,1],[390,844,3,1,59,34],[640,312,2,1],[844,390,3,1,0,21,59],[768,1024,2,1],[1280,800,1,0],[3840,2160,1,0]];
for(const [w,h,r,t,st,sb,ss] of S){
 const v=await begin(chromium,{width:w,height:h,deviceScaleFactor:r,hasTouch:!!t});
 const tab=await v.open();
 if(st||sb||ss) await tab.evaluate((st,sb,ss)=>{const s=document.documentElement.style;s.setProperty('--safe-top',(st||0)+'px');s.setProperty('--safe-bottom',(sb||0)+'px');s.setProperty('--safe-left',(ss||0)+'px');s.setProperty('--safe-right',(ss||0)+'px');dispatchEvent(new Event('resize'))},st||0,sb||0,ss||0);
 await sleep(900); await tap(tab,PLAY); await sleep(1200);
 const shot=async(n)=>writeFileSync(`/tmp/shots/${w}x${h}-${n}.png`,await tab.screenshot());
 await press(tab,'c'); await sleep(200); await shot('play');
 await tapOn(tab,'#menu-button'); await sleep(300); await shot('menu');
 await press(tab,'Escape');
 await v.end();
}
process.exit();
