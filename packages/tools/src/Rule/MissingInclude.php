<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Template;

/** An include whose file is in none of the folders. A name that might be a path in the data passes. */
final readonly class MissingInclude implements Rule
{
    public function __construct(private Folders $folders) {}

    public function check(Template $template): iterable
    {
        $folders = $this->folders->around($template->file);
        foreach ($template->tags as $tag) {
            $name = $tag->parameter;
            $isFileName = preg_match('~^[\w-]*$|::|://|^data:|\*~', $name) === 0;
            if ($tag->kind === TagKind::Include && $isFileName && $folders->find($name) === null) {
                $paths = implode(', ', $folders->paths);
                yield $tag->offset => "There is no file $name in $paths: correct the name, or name its folder with --include-path";
            }
        }
    }
}
